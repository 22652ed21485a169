#include "tools/glyph_cell.h"

#include <algorithm>

namespace tools {

void Fill(Cell& cell, const Box& box, std::uint8_t ink) {
    const int left = std::max(box.Left, 0);
    const int right = std::min(box.Right, kCellWidth);
    const int bottom = std::min(box.Bottom, kCellHeight);
    for (int y = std::max(box.Top, 0); y < bottom; ++y) {
        for (int x = left; x < right; ++x) cell.data()[y * kCellWidth + x] = ink;
    }
}

}  // namespace tools
