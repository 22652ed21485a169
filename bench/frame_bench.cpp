#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include "bench/ratio_table.h"
#include "bench/screen.h"
#include "toolkit/core/output.h"
#include "toolkit/toolkit.h"

namespace {

struct Size {
    std::int64_t Width;
    std::int64_t Height;
};

constexpr Size kUsual = {1280, 800};
constexpr Size kSmall = {640, 480};
constexpr Size kLarge = {4096, 1024};

// How far the picture moves in the memory from frame to frame, so that all of it changes.
constexpr std::int64_t kStep = 4800;

// Window 0 in this size and depth, it and the bytes below it filled with bytes that are not all
// alike.
void Prepare(std::int64_t bitDepth, const Size& size) {
    const t_Window& w = t_Windows[0];
    if (w.BitDepth == bitDepth && w.Width == size.Width && w.Height == size.Height) return;
    Screen::OpenPicture(bitDepth, size.Width, size.Height);
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

// Reads so many bytes and writes so many, side by side as a conversion has to.
class Traffic {
  public:
    Traffic(const Size& size, std::int64_t bitDepth)
        : input_(static_cast<std::size_t>(size.Width * size.Height * bitDepth / 8), 0x5A),
          output_(static_cast<std::size_t>(size.Width * size.Height * 4)) {}

    void Pass() {
        constexpr std::size_t kPiece = 4096;  // of the output
        const std::size_t pieces = output_.size() / kPiece;
        const std::size_t read = input_.size() / pieces;
        for (std::size_t n = 0; n < pieces; ++n) {
            Read(input_.data() + n * read, read);
            Write(output_.data() + n * kPiece, kPiece);
        }
    }

  private:
    using Vector [[gnu::vector_size(16)]] = std::uint64_t;

    void Read(const std::uint8_t* from, std::size_t count) {
        constexpr std::size_t kSums = 4;  // at once: one alone would wait for itself
        Vector sums[kSums] = {};
        for (std::size_t i = 0; i + sizeof sums <= count; i += sizeof sums) {
            Vector vectors[kSums];
            std::memcpy(vectors, from + i, sizeof vectors);
            for (std::size_t n = 0; n < kSums; ++n) sums[n] += vectors[n];
        }
        for (const Vector& sum : sums) sum_ += sum;
    }

    // What was read decides what is written.
    void Write(std::uint8_t* to, std::size_t count) const {
        std::memset(to, static_cast<int>(sum_[0]), count);
    }

    std::vector<std::uint8_t> input_;
    std::vector<std::uint8_t> output_;
    Vector sum_{};
};

void AddFrame(std::int64_t bitDepth, const Size& size, bool changed, double goal) {
    auto picture = std::make_shared<platform::Picture>();
    auto traffic = std::make_shared<std::unique_ptr<Traffic>>();
    AddPair(
        toolkit::Joined(changed ? "changed" : "same", " frame, ", bitDepth, " bits, ", size.Width,
                        " x ", size.Height),
        "reading its bytes and writing the frame's once",
        [=] {
            Prepare(bitDepth, size);
            changed ? BuildChangedFrame(*picture) : void(t_WindowImage(0, *picture));
        },
        [=] {
            if (*traffic == nullptr) *traffic = std::make_unique<Traffic>(size, bitDepth);
            (*traffic)->Pass();
        },
        goal);
}

}  // namespace

void AddFramePairs() {
    for (const std::int64_t bitDepth : {1, 4, 8, 16, 24, 32}) {
        AddFrame(bitDepth, kUsual, true, 1.15);
        AddFrame(bitDepth, kSmall, true, 1.5);
        // At 32 bits it would be larger than the machine's memory.
        if (bitDepth < 32) AddFrame(bitDepth, kLarge, true, 1.15);
    }
    AddFrame(24, kUsual, false, 1.15);
}
