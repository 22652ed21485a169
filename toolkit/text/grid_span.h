#pragma once

#include <cstdint>

#include "toolkit/core/numbers.h"
#include "toolkit/window/window.h"

namespace toolkit {

/// Columns or lines from `First` to `Last`, both included; none when First is greater. A loop over
/// them ends also where Last is the largest number that there is.
struct Span {
    std::int64_t First;
    std::int64_t Last;

    class Iterator {
      public:
        constexpr Iterator(std::int64_t value, std::int64_t left) : value_(value), left_(left) {}
        constexpr std::int64_t operator*() const { return value_; }
        constexpr Iterator& operator++() {
            value_ = Plus(value_, 1);
            --left_;
            return *this;
        }
        constexpr bool operator==(const Iterator& other) const { return left_ == other.left_; }

      private:
        std::int64_t value_;
        std::int64_t left_;
    };

    [[nodiscard]] constexpr std::int64_t Count() const {
        return First > Last ? 0 : LengthOf(First, Last);
    }
    [[nodiscard]] constexpr Iterator begin() const { return {First, Count()}; }
    [[nodiscard]] constexpr Iterator end() const { return {Last, 0}; }
};

/// The same span, cut to a length that no grid exceeds, so that a record or an argument with absurd
/// numbers costs a bounded number of steps.
[[nodiscard]] Span GridSpan(std::int64_t first, std::int64_t last);

/// The cells of some columns and lines.
struct CellArea {
    Span Columns;
    Span Lines;
};

/// The same cells, without the last lines where there are many more than the window's text block
/// holds.
[[nodiscard]] CellArea GridArea(const t_Window& w, const Span& columns, const Span& lines);

}  // namespace toolkit
