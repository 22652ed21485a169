#include "fuzz/support.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "app/interface.h"
#include "tests/support/globals.h"
#include "tests/support/random_font.h"
#include "toolkit/core/output.h"

namespace fuzz {

namespace {

constexpr std::int64_t kNeighbourDepth = 8;
constexpr std::int64_t kUsed = 0x1'0000;  // bytes that small windows take

}  // namespace

std::uint8_t Input::Byte() {
    if (rest_.empty()) return 0;
    const std::uint8_t byte = rest_.front();
    rest_ = rest_.subspan(1);
    return byte;
}

std::int64_t Input::Between(std::int64_t first, std::int64_t last) {
    return first + Byte() % (last - first + 1);
}

std::int64_t Input::OneOf(std::initializer_list<std::int64_t> values) {
    return values.begin()[Between(0, std::ssize(values) - 1)];
}

std::span<const std::uint8_t> Input::Bytes(std::size_t count) {
    const std::span<const std::uint8_t> bytes = rest_.first(std::min(count, rest_.size()));
    rest_ = rest_.subspan(bytes.size());
    return bytes;
}

void Check(bool holds, std::string_view what) {
    if (holds) return;
    std::fprintf(stderr, "Does not hold: %.*s\n", static_cast<int>(what.size()), what.data());
    std::abort();
}

Toolkit::Toolkit() : Delegate(nullptr) {
    Desktop.KeepOutput = false;
    Desktop.KeepPlayed = false;
    Desktop.ResourceFolder = "/resources";
    t_AppDelegate = &Delegate;
    BuildInterface(Delegate);
    toolkit::SetOutputListener([](std::string_view /*text*/) {});  // no console
    Desktop.Client = &Delegate;
    initvxtools();
    t_InitMemory();
}

Toolkit& Toolkit::Fresh() {
    static auto& toolkit = *new Toolkit;
    ResetGlobals();
    t_AppDelegate = &toolkit.Delegate;
    t_MemoryStarted = true;
    t_ToolsReady = true;
    t_AutoUpdateRunning = true;  // no refresh loop: its task would wait for ever
    // What an input finds in the memory never comes from the one before.
    toolkit::FillRun(toolkit::kHighestAddress + 1 - kUsed, kUsed, 0);
    return toolkit;
}

t_Font GreyFont(std::int64_t width, std::int64_t height) {
    Random random;
    t_Font font = RandomFont(random, width, height);
    std::fill_n(font.Data.data() + ' ' * width * height, width * height, std::uint8_t{0});
    return font;
}

std::vector<std::uint8_t> Memory(std::int64_t first, std::int64_t last) {
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(last - first + 1));
    Check(toolkit::ReadRun(first, bytes), "addresses lie in the memory");
    return bytes;
}

void OpenNeighbour(int window) {
    t_InitWindow(static_cast<std::uint8_t>(window), kNeighbourDepth, false, 32, 32, 0, 0, t_Font(),
                 true);
}

Guards::Guards() {
    constexpr std::int64_t kBelow = 2048;
    const auto watch = [this](std::int64_t first, std::int64_t last) {
        Stretch stretch{first,
                        std::vector<std::uint8_t>(static_cast<std::size_t>(last - first + 1))};
        for (std::size_t i = 0; i < stretch.Bytes.size(); ++i) {
            stretch.Bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 256 + 1);
        }
        Check(toolkit::WriteRun(first, stretch.Bytes), "there is room for guards");
        stretches_.push_back(std::move(stretch));
    };
    for (const t_Window& w : t_Windows) {
        if (w.Initialized && w.TextMemoryStart < 0) watch(w.MemoryStart, w.MemoryEnd);
    }
    watch(t_HighMemory + 1 - kBelow, t_HighMemory);
}

void Guards::ExpectUntouched() const {
    for (const Stretch& stretch : stretches_) {
        Check(
            std::equal(stretch.Bytes.begin(), stretch.Bytes.end(), t_Memory.data() + stretch.First),
            "nothing is written outside a window's blocks");
    }
}

}  // namespace fuzz
