#include <cstddef>
#include <cstdint>

#include "fuzz/support.h"
#include "tests/support/block_model.h"

// The input is a sequence of window set-ups, four bytes each. The memory stays what a list of
// blocks says.

namespace {

constexpr int kMostSetUps = 20;

std::int64_t Side(fuzz::Input& input, bool extreme) {
    return extreme ? input.OneOf({31, 32, 33, 81, 82, 95, 300, 8192, 8193})
                   : input.Between(32, 121);
}

// Large pictures take milliseconds: the first set-up alone may make one.
WindowSetUp Next(fuzz::Input& input, bool isFirst) {
    const std::uint8_t kind = input.Byte();
    const bool extreme = isFirst && kind == 255;
    WindowSetUp setUp;
    setUp.Window = kind & 7;
    setUp.HasFont = (kind & 8) != 0;
    setUp.HasView = (kind & 0xF0) != 0x30;
    setUp.BitDepth = input.OneOf({1, 4, 8, 16, 24, 32, 8, extreme ? 2 : 24});
    setUp.Width = Side(input, extreme);
    setUp.Height = Side(input, extreme);
    return setUp;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    fuzz::Toolkit& toolkit = fuzz::Toolkit::Fresh();
    BlockModel model;
    for (int i = 0; i < kMostSetUps && !input.IsEmpty(); ++i) {
        model.Apply(Next(input, i == 0), toolkit.Delegate);
        const std::string difference = model.Difference();
        fuzz::Check(difference.empty(), difference);
    }
    return 0;
}
