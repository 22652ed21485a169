#include "platform/parts/sharp_scale.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/random.h"

namespace platform::parts {

namespace {

// The share of source pixel `s` in target pixel `t`.
double Share(std::int64_t s, std::int64_t t, std::int64_t source, std::int64_t target) {
    const double size = static_cast<double>(source) / static_cast<double>(target);
    const double begin = static_cast<double>(t) * size;
    const double covered = std::min(static_cast<double>(s) + 1, begin + size) -
                           std::max(static_cast<double>(s), begin);
    return std::max(0.0, covered) / size;
}

double Exact(const Picture& picture, std::int64_t x, std::int64_t y, std::int64_t width,
             std::int64_t height, std::int64_t channel) {
    double sum = 0;
    for (std::int64_t sy = 0; sy < picture.Height; ++sy) {
        for (std::int64_t sx = 0; sx < picture.Width; ++sx) {
            const auto at = static_cast<std::size_t>(4 * (sy * picture.Width + sx) + channel);
            sum += Share(sx, x, picture.Width, width) * Share(sy, y, picture.Height, height) *
                   picture.Bytes[at];
        }
    }
    return sum;
}

}  // namespace

TEST(SharpScale, AveragesWhatEveryPixelCovers) {
    Random random;
    SharpScaler scaler;
    for (int i = 0; i < 60; ++i) {
        Picture picture{random.Between(1, 9), random.Between(1, 9), kNativeWordOrder, {}};
        const auto bytes = random.Bytes(4 * picture.Width * picture.Height);
        picture.Bytes.assign(bytes.begin(), bytes.end());
        const std::int64_t width = random.Between(1, 20);
        const std::int64_t height = random.Between(1, 20);
        const std::int64_t stride = width + random.Between(0, 3);
        constexpr std::uint32_t kUntouched = 0x12345678;
        std::vector<std::uint32_t> target(static_cast<std::size_t>(stride * height), kUntouched);
        scaler.Scale(picture, width, height, target, stride);
        for (std::int64_t y = 0; y < height; ++y) {
            const std::uint32_t* const row = target.data() + y * stride;
            for (std::int64_t x = 0; x < width; ++x) {
                for (std::int64_t c = 0; c < 4; ++c) {
                    const auto shown = reinterpret_cast<const std::uint8_t*>(row + x)[c];
                    ASSERT_NEAR(shown, Exact(picture, x, y, width, height, c), 2.5)
                        << picture.Width << " x " << picture.Height << " as " << width << " x "
                        << height << " at " << x << ", " << y;
                }
            }
            for (std::int64_t x = width; x < stride; ++x) ASSERT_EQ(row[x], kUntouched);
        }
    }
}

// A stem one pixel wide keeps its weight, wherever it stands.
TEST(SharpScale, KeepsThinStemsWhenItReduces) {
    constexpr std::int64_t kSize = 64;
    for (const int percent : {50, 57, 75}) {
        const std::int64_t size = kSize * percent / 100;
        SharpScaler scaler;
        for (std::int64_t stem = 0; stem < kSize; ++stem) {
            Picture picture{kSize, 1, kNativeWordOrder, PixelBytes(4 * kSize)};
            std::fill_n(picture.Bytes.data() + 4 * stem, 4, 255);
            std::vector<std::uint32_t> target(static_cast<std::size_t>(size));
            scaler.Scale(picture, size, 1, target, size);
            std::int64_t light = 0;
            for (const std::uint32_t pixel : target) light += pixel & 255U;
            EXPECT_NEAR(static_cast<double>(light), 2.55 * percent, 5)
                << "stem " << stem << " at " << percent << " %";
        }
    }
}

TEST(SharpScale, LeavesTheTargetAloneWhenSizesDoNotFit) {
    SharpScaler scaler;
    const Picture whole{2, 2, kNativeWordOrder, PixelBytes(16, 1)};
    const Picture torn{2, 2, kNativeWordOrder, PixelBytes(15, 1)};
    std::vector<std::uint32_t> target(12, 7);
    scaler.Scale(torn, 3, 3, target, 3);
    scaler.Scale(whole, 0, 3, target, 3);
    scaler.Scale(whole, 3, -1, target, 3);
    scaler.Scale(whole, 3, 3, target, 2);
    scaler.Scale(whole, 4, 4, target, 4);
    scaler.Scale({}, 3, 3, target, 3);
    EXPECT_EQ(target, std::vector<std::uint32_t>(12, 7));
    scaler.Scale(whole, 3, 3, target, 3);
    EXPECT_NE(target, std::vector<std::uint32_t>(12, 7));
}

}  // namespace platform::parts
