#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/picture.h"

// Enlarging and reducing pictures by factors that are not whole numbers, without blur: every target
// pixel is the average of the source area that it covers. That equals enlarging to the next whole
// factor without smoothing and one smooth step down from there, at the cost of the target alone.

namespace platform::desktop {

/// Scales pictures to one target size after the other. Keeps its tables and rows from picture to
/// picture, so that a steady size costs no memory traffic besides the pixels. Main thread.
class SharpScaler {
  public:
    /// Writes the picture, scaled to `width` x `height` pixels, row by row into `target`, whose
    /// rows are `stride` pixels apart. Pixels are 32-bit words of four 8-bit channels in any order.
    /// Does nothing unless all sizes are at least 1 and the picture has all its bytes.
    void Scale(const Picture& picture, std::int64_t width, std::int64_t height,
               std::span<std::uint32_t> target, std::int64_t stride);

  private:
    /// What one target pixel covers of the source: Weights[i] 256ths of source pixel First + i.
    struct Cover {
        std::int64_t First = 0;
        std::vector<std::uint32_t> Weights;  // at least one; together 256
    };

    static std::vector<Cover> Covers(std::int64_t source, std::int64_t target);
    const std::vector<std::uint32_t>& ScaledRow(const Picture& picture, std::int64_t y);

    std::int64_t sourceWidth_ = 0;
    std::int64_t sourceHeight_ = 0;
    std::vector<Cover> columns_;
    std::vector<Cover> rows_;

    // The two source rows scaled last, already at the target's width.
    struct Row {
        std::int64_t Y = -1;
        std::vector<std::uint32_t> Pixels;
    };
    Row kept_[2];
    int oldest_ = 0;
};

}  // namespace platform::desktop
