#include "toolkit/text/grid_span.h"

#include <algorithm>

#include "toolkit/core/memory.h"

namespace toolkit {

namespace {

constexpr std::int64_t kLongest = kLargestSide;  // cells are at least a pixel wide and high

Span CutTo(std::int64_t length, const Span& span) {
    return {span.First, std::min(span.Last, Plus(span.First, length - 1))};
}

}  // namespace

Span GridSpan(std::int64_t first, std::int64_t last) {
    return CutTo(kLongest, {first, last});
}

CellArea GridArea(const t_Window& w, const Span& columns, const Span& lines) {
    const Span cut = CutTo(kLongest, columns);
    const std::int64_t cells = std::max(kLongest, std::min(ColorOffset(w), t_Memory.size()));
    const std::int64_t wholeLines = cells / std::max<std::int64_t>(cut.Count(), 1) + 1;
    return {cut, CutTo(std::min(kLongest, wholeLines), lines)};
}

}  // namespace toolkit
