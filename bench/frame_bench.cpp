#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "bench/ratio_table.h"
#include "bench/screen.h"
#include "toolkit/toolkit.h"

namespace {

constexpr std::int64_t kWidth = 1280;
constexpr std::int64_t kHeight = 800;

struct Frames {
    platform::Picture Built;
    std::vector<std::uint8_t> Copy;
};

// Window 0 at this depth, filled with bytes that are not all alike.
void Prepare(std::int64_t bitDepth) {
    const t_Window& w = t_Windows[0];
    if (w.BitDepth == bitDepth && w.Width == kWidth) return;
    Screen::OpenPicture(bitDepth, kWidth, kHeight);
    for (std::int64_t a = w.MemoryStart; a <= w.MemoryEnd; ++a) {
        toolkit::Poke(a, static_cast<std::uint8_t>(a * 7 + (a >> 9)));
    }
}

void AddFrame(std::int64_t bitDepth, double goal) {
    auto frames = std::make_shared<Frames>();
    AddPair(
        "frame, " + std::to_string(bitDepth) + " bits, 1280 x 800",
        "copying the finished frame once",
        [frames, bitDepth] {
            Prepare(bitDepth);
            t_WindowImage(0, frames->Built);
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
    for (const std::int64_t bitDepth : {1, 4, 8, 16}) AddFrame(bitDepth, 3.0);
    for (const std::int64_t bitDepth : {24, 32}) AddFrame(bitDepth, 1.5);
}
