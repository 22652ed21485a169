#include "platform/parts/sharp_scale.h"

#include <algorithm>
#include <cstring>

namespace platform::parts {

namespace {

constexpr std::int64_t kWhole = 256;
constexpr std::uint16_t kHalf = 128;

// Two channels of a pixel at a time, each in the low byte of a 16-bit half.
constexpr std::uint32_t kHalves = 0x00FF00FF;
constexpr std::uint32_t kHalfOfEach = 0x00800080;

std::uint32_t PixelAt(const std::uint8_t* row, std::int64_t x) {
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, row + 4 * x, sizeof pixel);
    return pixel;
}

// The average of the pixels from `row` + 4 * `first` on; the weights add up to 256.
std::uint32_t MixPixels(const std::uint8_t* row, std::int64_t first,
                        std::span<const std::uint16_t> weights) {
    std::uint32_t low = kHalfOfEach;
    std::uint32_t high = kHalfOfEach;
    for (const std::uint32_t weight : weights) {
        const std::uint32_t pixel = PixelAt(row, first++);
        low += (pixel & kHalves) * weight;
        high += ((pixel >> 8U) & kHalves) * weight;
    }
    return ((low >> 8U) & kHalves) | (high & ~kHalves);
}

// Both rows and the target as `bytes` channels.
void MixTwo(const std::uint8_t* above, const std::uint8_t* below, std::uint16_t weightAbove,
            std::uint16_t weightBelow, std::uint8_t* target, std::size_t bytes) {
    for (std::size_t i = 0; i < bytes; ++i) {
        const auto sum =
            static_cast<std::uint16_t>(above[i] * weightAbove + below[i] * weightBelow + kHalf);
        target[i] = static_cast<std::uint8_t>(sum >> 8U);
    }
}

const std::uint8_t* Bytes(const std::uint32_t* pixels) {
    return reinterpret_cast<const std::uint8_t*>(pixels);
}

}  // namespace

// Target pixel t covers the source from t * source / target to (t + 1) * source / target. Shares
// are rounded where they end, so that they add up exactly.
void SharpScaler::Covers::Fit(std::int64_t source, std::int64_t target) {
    if (source == Source && target == Target) return;
    Source = source;
    Target = target;
    First.clear();
    Begin.assign(1, 0);
    Weights.clear();
    for (std::int64_t t = 0; t < target; ++t) {
        const std::int64_t begin = t * source;  // in units of 1 / target of a source pixel
        const std::int64_t end = begin + source;
        std::int64_t given = 0;
        First.push_back(static_cast<std::int32_t>(begin / target));
        for (std::int64_t s = begin / target; s * target < end; ++s) {
            const std::int64_t covered = std::min((s + 1) * target, end) - begin;
            const std::int64_t upTo = (covered * kWhole + source / 2) / source;
            Weights.push_back(static_cast<std::uint16_t>(upTo - given));
            given = upTo;
        }
        Begin.push_back(static_cast<std::int32_t>(Weights.size()));
    }
}

std::span<const std::uint16_t> SharpScaler::Covers::WeightsOf(std::int64_t t) const {
    const std::int32_t* const begin = Begin.data() + t;
    return {Weights.data() + begin[0], Weights.data() + begin[1]};
}

const std::uint32_t* SharpScaler::ScaledRow(const Picture& picture, std::int64_t y) {
    for (const Row& row : kept_) {
        if (row.Y == y) return row.Pixels.data();
    }
    Row& row = kept_[oldest_];
    oldest_ = 1 - oldest_;
    row.Y = y;
    row.Pixels.resize(static_cast<std::size_t>(columns_.Target));
    const std::uint8_t* const source = picture.Bytes.data() + 4 * picture.Width * y;
    std::uint32_t* pixel = row.Pixels.data();
    for (std::int64_t x = 0; x < columns_.Target; ++x) {
        const std::int64_t first = columns_.First.data()[x];
        const std::span<const std::uint16_t> weights = columns_.WeightsOf(x);
        *pixel++ = weights.size() == 1 ? PixelAt(source, first) : MixPixels(source, first, weights);
    }
    return row.Pixels.data();
}

void SharpScaler::MixRows(const Picture& picture, std::int64_t first,
                          std::span<const std::uint16_t> weights, std::uint32_t* line) {
    const auto channels = static_cast<std::size_t>(4 * columns_.Target);
    auto* const target = reinterpret_cast<std::uint8_t*>(line);
    if (weights.size() == 1) {
        std::memcpy(target, ScaledRow(picture, first), channels);
    } else if (weights.size() == 2) {
        const std::uint8_t* const above = Bytes(ScaledRow(picture, first));
        const std::uint8_t* const below = Bytes(ScaledRow(picture, first + 1));
        MixTwo(above, below, weights[0], weights[1], target, channels);
    } else {
        sums_.assign(channels, kHalf);
        for (const std::uint16_t weight : weights) {
            const std::uint8_t* const row = Bytes(ScaledRow(picture, first++));
            for (std::size_t i = 0; i < channels; ++i) {
                sums_[i] = static_cast<std::uint16_t>(sums_[i] + row[i] * weight);
            }
        }
        for (std::size_t i = 0; i < channels; ++i) {
            target[i] = static_cast<std::uint8_t>(sums_[i] >> 8U);
        }
    }
}

void SharpScaler::Scale(const Picture& picture, std::int64_t width, std::int64_t height,
                        std::span<std::uint32_t> target, std::int64_t stride) {
    if (width < 1 || height < 1 || picture.Width < 1 || picture.Height < 1) return;
    if (std::ssize(picture.Bytes) < 4 * picture.Width * picture.Height) return;
    if (stride < width || std::ssize(target) < stride * (height - 1) + width) return;
    columns_.Fit(picture.Width, width);
    rows_.Fit(picture.Height, height);
    for (Row& row : kept_) row.Y = -1;
    for (std::int64_t y = 0; y < height; ++y) {
        MixRows(picture, rows_.First.data()[y], rows_.WeightsOf(y), target.data() + stride * y);
    }
}

}  // namespace platform::parts
