#include "platform/desktop/sharp_scale.h"

#include <algorithm>
#include <cstring>

namespace platform::desktop {

namespace {

constexpr std::uint32_t kWhole = 256;

// Two channels of a pixel at a time, each in the low byte of a 16-bit half.
constexpr std::uint32_t kHalves = 0x00FF00FF;
constexpr std::uint32_t kRounding = 0x00800080;

/// A sum of weighted pixels; the weights must add up to 256.
class Mix {
  public:
    void Add(std::uint32_t pixel, std::uint32_t weight) {
        low_ += (pixel & kHalves) * weight;
        high_ += ((pixel >> 8U) & kHalves) * weight;
    }
    [[nodiscard]] std::uint32_t Pixel() const {
        return ((low_ >> 8U) & kHalves) | (high_ & ~kHalves);
    }

  private:
    std::uint32_t low_ = kRounding;
    std::uint32_t high_ = kRounding;
};

std::uint32_t PixelAt(const std::uint8_t* row, std::int64_t x) {
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, row + 4 * x, sizeof pixel);
    return pixel;
}

}  // namespace

// Target pixel t covers the source from t * source / target to (t + 1) * source / target. The
// shares are rounded down from both ends of each source pixel, so that they add up exactly.
std::vector<SharpScaler::Cover> SharpScaler::Covers(std::int64_t source, std::int64_t target) {
    std::vector<Cover> covers(static_cast<std::size_t>(target));
    for (std::int64_t t = 0; t < target; ++t) {
        Cover& cover = covers[static_cast<std::size_t>(t)];
        const std::int64_t begin = t * source;  // in units of 1 / target of a source pixel
        const std::int64_t end = begin + source;
        cover.First = begin / target;
        std::int64_t given = 0;
        for (std::int64_t s = cover.First; s * target < end; ++s) {
            const std::int64_t upTo = std::min((s + 1) * target, end) - begin;
            const std::int64_t weight = upTo * kWhole / source - given;
            cover.Weights.push_back(static_cast<std::uint32_t>(weight));
            given += weight;
        }
    }
    return covers;
}

const std::vector<std::uint32_t>& SharpScaler::ScaledRow(const Picture& picture, std::int64_t y) {
    for (const Row& row : kept_) {
        if (row.Y == y) return row.Pixels;
    }
    Row& row = kept_[oldest_];
    oldest_ = 1 - oldest_;
    row.Y = y;
    row.Pixels.resize(columns_.size());
    const std::uint8_t* const source = picture.Bytes.data() + 4 * picture.Width * y;
    for (std::size_t x = 0; x < columns_.size(); ++x) {
        const Cover& cover = columns_[x];
        Mix mix;
        std::int64_t from = cover.First;
        for (const std::uint32_t weight : cover.Weights) mix.Add(PixelAt(source, from++), weight);
        row.Pixels[x] = mix.Pixel();
    }
    return row.Pixels;
}

void SharpScaler::Scale(const Picture& picture, std::int64_t width, std::int64_t height,
                        std::span<std::uint32_t> target, std::int64_t stride) {
    if (width < 1 || height < 1 || picture.Width < 1 || picture.Height < 1) return;
    if (std::ssize(picture.Bytes) < 4 * picture.Width * picture.Height) return;
    if (stride < width || std::ssize(target) < stride * (height - 1) + width) return;
    if (sourceWidth_ != picture.Width || std::ssize(columns_) != width) {
        columns_ = Covers(picture.Width, width);
    }
    if (sourceHeight_ != picture.Height || std::ssize(rows_) != height) {
        rows_ = Covers(picture.Height, height);
    }
    sourceWidth_ = picture.Width;
    sourceHeight_ = picture.Height;
    for (Row& row : kept_) row.Y = -1;

    std::vector<Mix> sums;
    for (std::int64_t y = 0; y < height; ++y) {
        const Cover& cover = rows_[static_cast<std::size_t>(y)];
        std::uint32_t* const line = target.data() + stride * y;
        if (cover.Weights.size() == 1) {
            std::ranges::copy(ScaledRow(picture, cover.First), line);
            continue;
        }
        sums.assign(columns_.size(), Mix());
        std::int64_t from = cover.First;
        for (const std::uint32_t weight : cover.Weights) {
            const std::vector<std::uint32_t>& row = ScaledRow(picture, from++);
            for (std::size_t x = 0; x < row.size(); ++x) sums[x].Add(row[x], weight);
        }
        for (std::size_t x = 0; x < sums.size(); ++x) line[x] = sums[x].Pixel();
    }
}

}  // namespace platform::desktop
