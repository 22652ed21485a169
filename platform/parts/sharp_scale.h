#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/picture.h"

// Enlarging and reducing pictures by factors that are not whole numbers, without blur: every target
// pixel is the average of the source area that it covers. That equals enlarging to the next whole
// factor without smoothing and one smooth step down from there, at the cost of the target alone.

namespace platform::parts {

/// Scales pictures to one target size after the other. Keeps its tables and rows from picture to
/// picture, so that a steady size costs no memory traffic besides the pixels. Main thread.
class SharpScaler {
  public:
    /// Writes the picture, scaled to `width` x `height` pixels, row by row into `target`, whose
    /// rows are `stride` pixels apart. A pixel is four channels of one byte each, in any order.
    /// Does nothing unless all sizes are at least 1 and the picture has all its bytes.
    void Scale(const Picture& picture, std::int64_t width, std::int64_t height,
               std::span<std::uint32_t> target, std::int64_t stride);

  private:
    /// What the target pixels of one direction cover of the source. Of the source pixels from
    /// First[t] on, target pixel t covers so many 256ths: the weights from Weights[Begin[t]] on
    /// that come before Weights[Begin[t + 1]].
    struct Covers {
        std::int64_t Source = 0;  // pixels
        std::int64_t Target = 0;  // pixels
        std::vector<std::int32_t> First;
        std::vector<std::int32_t> Begin;
        std::vector<std::uint16_t> Weights;

        void Fit(std::int64_t source, std::int64_t target);
        [[nodiscard]] std::span<const std::uint16_t> WeightsOf(std::int64_t t) const;
    };

    /// A source row at the target's width.
    struct Row {
        std::int64_t Y = -1;
        std::vector<std::uint32_t> Pixels;
    };

    const std::uint32_t* ScaledRow(const Picture& picture, std::int64_t y);
    void MixRows(const Picture& picture, std::int64_t first, std::span<const std::uint16_t> weights,
                 std::uint32_t* line);

    Covers columns_;
    Covers rows_;
    Row kept_[2];  // scaled last
    int oldest_ = 0;
    std::vector<std::uint16_t> sums_;  // one per channel of a target row
};

}  // namespace platform::parts
