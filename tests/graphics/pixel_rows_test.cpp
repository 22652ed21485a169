#include "toolkit/graphics/pixel_rows.h"

#include <gtest/gtest.h>
#include <sys/mman.h>

#include <algorithm>

#include "tests/support/random.h"
#include "toolkit/graphics/wide_pixels.h"

using platform::PixelOrder;
using toolkit::PixelConverter;

namespace {

// Random bytes that end where the memory does: whoever reads on ends the process.
class Source {
  public:
    explicit Source(Random& random)
        : bytes_(static_cast<std::uint8_t*>(mmap(nullptr, kSize + kPage, PROT_READ | PROT_WRITE,
                                                 MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))) {
        std::generate_n(bytes_, kSize, [&random] { return random.Byte(); });
        mprotect(bytes_ + kSize, kPage, PROT_NONE);
    }
    ~Source() { munmap(bytes_, kSize + kPage); }
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;

    [[nodiscard]] const std::uint8_t* Last(std::int64_t count) const {
        return bytes_ + kSize - count;
    }

  private:
    static constexpr std::int64_t kPage = 4096;
    static constexpr std::int64_t kSize = 8 * kPage;

    std::uint8_t* bytes_;
};

// Every converter that runs on this machine, by vectors of each size and byte by byte, gives the
// same pixels of a source that ends `distance` bytes before the end of its memory.
void ExpectAgreement(std::int64_t depth, PixelOrder order, std::int64_t distance,
                     std::int64_t count) {
    Random random;
    const Source source(random);
    const std::uint8_t* const from = source.Last(count * depth / 8 + distance);
    std::vector<std::uint8_t> expected(static_cast<std::size_t>(4 * count));
    const PixelConverter narrow = toolkit::NarrowConverterFor(depth, order);
    // Eight pixels at a time are too few for vectors.
    for (std::int64_t at = 0; at < count; at += 8) {
        narrow.Convert(from + at * depth / 8, expected.data() + 4 * at, 8);
    }
    for (const PixelConverter& converter :
         {narrow, toolkit::ConverterFor(depth, order), toolkit::WideConverterFor(depth, order),
          toolkit::HalfWideConverterFor(depth, order)}) {
        if (converter.Convert == nullptr) continue;  // not on this machine
        std::vector<std::uint8_t> pixels(expected.size() + 1, 77);
        EXPECT_TRUE(converter.Differs(from, pixels.data(), count));
        converter.Convert(from, pixels.data(), count);
        EXPECT_EQ(pixels.back(), 77);
        pixels.pop_back();
        EXPECT_EQ(pixels, expected);
        EXPECT_FALSE(converter.Differs(from, pixels.data(), count));
        for (int i = 0; i < 20; ++i) {
            const auto at = static_cast<std::size_t>(random.Between(0, 4 * count - 1));
            pixels[at] ^= 1;
            EXPECT_TRUE(converter.Differs(from, pixels.data(), count)) << at;
            pixels[at] ^= 1;
        }
    }
}

}  // namespace

// Counts give whole vectors and rests, and aligned sources and others.
TEST(PixelRows, AreTheSameByEveryConverterOfThisMachine) {
    for (const std::int64_t depth : {1, 4, 8, 16, 24, 32}) {
        for (const PixelOrder order :
             {PixelOrder::AlphaRedGreenBlue, PixelOrder::BlueGreenRedAlpha}) {
            for (const std::int64_t distance : {0, 1}) {
                for (const std::int64_t count : {4096 + 40, 1024, 16, 8}) {
                    SCOPED_TRACE(testing::Message() << depth << " bits, " << count << " pixels");
                    ExpectAgreement(depth, order, distance, count);
                }
            }
        }
    }
}
