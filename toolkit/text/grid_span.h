#pragma once

#include <algorithm>
#include <cstdint>

#include "toolkit/core/numbers.h"

namespace toolkit {

/// Columns or lines from `First` to `Last`, both included; none when First is greater.
struct Span {
    std::int64_t First;
    std::int64_t Last;
};

/// The same span, cut to a length that no grid exceeds, so that a record or an argument with absurd
/// numbers costs a bounded number of steps.
[[nodiscard]] constexpr Span GridSpan(std::int64_t first, std::int64_t last) {
    constexpr std::int64_t kLongest = 8192;
    return {first, std::min(last, Plus(first, kLongest - 1))};
}

}  // namespace toolkit
