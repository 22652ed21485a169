#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "bench/ratio_table.h"
#include "bench/screen.h"
#include "toolkit/core/output.h"
#include "toolkit/toolkit.h"

namespace {

constexpr std::int64_t kWidth = 1280;
constexpr std::int64_t kHeight = 800;

struct Frames {
    platform::Picture Built;
    std::vector<std::uint8_t> Copy;
};

// How far the picture moves in the memory from frame to frame, so that all of it changes.
constexpr std::int64_t kStep = 4800;

// Window 0 at this depth, it and the bytes below it filled with bytes that are not all alike.
void Prepare(std::int64_t bitDepth) {
    const t_Window& w = t_Windows[0];
    if (w.BitDepth == bitDepth && w.Width == kWidth) return;
    Screen::OpenPicture(bitDepth, kWidth, kHeight);
    for (std::int64_t a = w.MemoryStart - kStep; a <= w.MemoryEnd; ++a) {
        toolkit::Poke(a, static_cast<std::uint8_t>(a * 7 + (a >> 9)));
    }
}

void BuildChangedFrame(platform::Picture& picture) {
    t_Window& w = t_Windows[0];
    const std::int64_t start = w.MemoryStart;
    static bool moved = false;
    moved = !moved;
    if (moved) w.MemoryStart = start - kStep;
    t_WindowImage(0, picture);
    w.MemoryStart = start;
}

void AddFrame(std::int64_t bitDepth, bool changed, double goal) {
    auto frames = std::make_shared<Frames>();
    AddPair(
        toolkit::Joined(changed ? "changed" : "same", " frame, ", bitDepth, " bits, 1280 x 800"),
        "copying the finished frame once",
        [frames, bitDepth, changed] {
            Prepare(bitDepth);
            changed ? BuildChangedFrame(frames->Built) : void(t_WindowImage(0, frames->Built));
        },
        [frames, bitDepth] {
            if (frames->Copy.empty()) {
                Prepare(bitDepth);
                t_WindowImage(0, frames->Built);
                frames->Copy = frames->Built.Bytes;
            }
            std::memcpy(frames->Copy.data(), frames->Built.Bytes.data(), frames->Copy.size());
        },
        goal);
}

}  // namespace

void AddFramePairs() {
    for (const std::int64_t bitDepth : {1, 4, 8, 16, 24, 32}) {
        AddFrame(bitDepth, true, bitDepth < 24 ? 3.0 : 1.5);
        AddFrame(bitDepth, false, 2.0);
    }
}
