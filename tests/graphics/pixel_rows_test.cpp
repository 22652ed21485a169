#include "toolkit/graphics/pixel_rows.h"

#include <gtest/gtest.h>

#include <array>

#include "tests/support/random.h"
#include "toolkit/graphics/wide_pixels.h"

using platform::PixelOrder;
using toolkit::PixelConverter;

namespace {

constexpr std::int64_t kPixels = 4096 + 40;

struct alignas(64) Source {
    std::array<std::uint8_t, 4 * kPixels + 64> Bytes;
};

// Every converter that runs on this machine, by vectors of each size and byte by byte, gives the
// same pixels: the first has the wide one take the whole, the last two see sources that are not
// aligned or end early.
void ExpectAgreement(std::int64_t depth, PixelOrder order, std::int64_t offset,
                     std::int64_t count) {
    Random random;
    static Source source;
    for (std::uint8_t& byte : source.Bytes) byte = random.Byte();
    const std::uint8_t* const from = source.Bytes.data() + offset;
    std::vector<std::uint8_t> expected(static_cast<std::size_t>(4 * count));
    const PixelConverter narrow = toolkit::NarrowConverterFor(depth, order);
    // Eight pixels at a time are too few for vectors.
    for (std::int64_t at = 0; at < count; at += 8) {
        narrow.Convert(from + at * depth / 8, expected.data() + 4 * at, 8);
    }
    for (const PixelConverter& converter :
         {narrow, toolkit::ConverterFor(depth, order), toolkit::WideConverterFor(depth, order)}) {
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

TEST(PixelRows, AreTheSameByEveryConverterOfThisMachine) {
    for (const std::int64_t depth : {1, 4, 8, 16, 24, 32}) {
        for (const PixelOrder order :
             {PixelOrder::AlphaRedGreenBlue, PixelOrder::BlueGreenRedAlpha}) {
            for (const std::int64_t offset : {0, 1, 16, 48}) {
                for (const std::int64_t count : {kPixels, INT64_C(1024), INT64_C(8)}) {
                    SCOPED_TRACE(testing::Message()
                                 << depth << " bits from " << offset << ", " << count << " pixels");
                    ExpectAgreement(depth, order, offset, count);
                }
            }
        }
    }
}
