#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>

#include "fuzz/support.h"

// The input is a font file. It is loaded, and every code is printed with what came of it.

namespace {

void CheckConsistent(const t_Font& font, std::span<const std::uint8_t> file) {
    if (font.Data.empty()) return;
    fuzz::Check(font.HeaderSize == file[0], "the header's size is the first byte");
    fuzz::Check(font.Identifier == t_FontIdentifier, "a font that loads is a font file");
    fuzz::Check(font.Start == file[10] && font.End == file[11], "codes are the header's");
    fuzz::Check(font.Width == file[12] && font.Height == file[13], "sizes are the header's");
    const int format = file[5];
    const bool packed = format == 100 || format == 102;
    fuzz::Check(font.Format == (packed ? format - 100 : format), "a loaded font is unpacked");
    if (packed) return;
    const auto data = file.subspan(file[0]);
    fuzz::Check(std::equal(font.Data.begin(), font.Data.end(), data.begin(), data.end()),
                "data that is not packed is the file's");
}

void PrintEveryCode(std::int64_t bitDepth, const t_Font& font) {
    fuzz::OpenNeighbour(1);
    t_InitWindow(0, bitDepth, false, 64, 48, 0, 0, font, true);
    const fuzz::Guards guards;
    const t_Window& w = t_Windows[0];
    const std::int64_t columns = std::max<std::int64_t>(w.TextWidth, 1);
    const std::int64_t lines = std::max<std::int64_t>(w.TextHeight, 1);
    for (std::int64_t code = 0; code < 256; ++code) {
        t_PrintSymbol(0, static_cast<std::uint8_t>(code), static_cast<std::uint8_t>(code * 5),
                      code % columns + 1, code / columns % lines + 1);
    }
    guards.ExpectUntouched();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::int64_t kDepths[] = {1, 4, 8, 16, 24, 32};
    const std::span<const std::uint8_t> file(data, size);
    fuzz::Toolkit& toolkit = fuzz::Toolkit::Fresh();
    toolkit.Desktop.Files["fuzz.font"].assign(file.begin(), file.end());
    const t_Font font = t_LoadFontResource("fuzz.font");
    CheckConsistent(font, file);
    PrintEveryCode(kDepths[size % std::size(kDepths)], font);
    return 0;
}
