#pragma once

#include <cstdint>
#include <limits>

// Whole-number arithmetic for values that a program chose freely: a result that does not fit stops
// at the largest or smallest number instead of wrapping, so that a range check after it still
// holds.

namespace toolkit {

namespace detail {

constexpr std::int64_t Limit(bool negative) {
    return negative ? std::numeric_limits<std::int64_t>::min()
                    : std::numeric_limits<std::int64_t>::max();
}

}  // namespace detail

constexpr std::int64_t Plus(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    return __builtin_add_overflow(a, b, &result) ? detail::Limit(a < 0) : result;
}

constexpr std::int64_t Minus(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    return __builtin_sub_overflow(a, b, &result) ? detail::Limit(a < 0) : result;
}

constexpr std::int64_t Times(std::int64_t a, std::int64_t b) {
    std::int64_t result = 0;
    return __builtin_mul_overflow(a, b, &result) ? detail::Limit((a < 0) != (b < 0)) : result;
}

/// `value` truncated toward zero; a value beyond the range stops at its end, not-a-number gives 0.
constexpr std::int64_t Truncated(double value) {
    constexpr double kEnd = 9223372036854775808.0;  // 2 to the power of 63
    if (value >= kEnd) return detail::Limit(false);
    if (value <= -kEnd) return detail::Limit(true);
    return value == value ? static_cast<std::int64_t>(value) : 0;
}

}  // namespace toolkit
