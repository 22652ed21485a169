#pragma once

// One character cell of a font and the few strokes that the drawn glyphs are made of. Coordinates
// are pixels from the upper left corner of the cell; ranges are half open.

#include <array>
#include <cstddef>
#include <cstdint>

namespace tools {

constexpr int kCellWidth = 16;
constexpr int kCellHeight = 32;
constexpr int kCellCodes = 256;

/// The ink of one glyph, 0 background to 255 full ink; rows top to bottom, pixels left to right.
using Cell = std::array<std::uint8_t, std::size_t{kCellWidth} * kCellHeight>;

/// The pixels from (Left, Top) up to but without (Right, Bottom).
struct Box {
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;
};

constexpr Box kWholeCell = {0, 0, kCellWidth, kCellHeight};

/// Sets every pixel of `box` to `ink`; what lies outside the cell is left out.
void Fill(Cell& cell, const Box& box, std::uint8_t ink = 255);

/// Adds the shape that `inside(x, y)` describes: each pixel gets the part of its area that lies
/// inside, measured at 16 x 16 points, unless it holds more ink already.
template <typename Inside>
void Cover(Cell& cell, Inside inside) {
    constexpr int kPoints = 16;
    std::uint8_t* pixel = cell.data();
    for (int y = 0; y < kCellHeight; ++y) {
        for (int x = 0; x < kCellWidth; ++x, ++pixel) {
            int hits = 0;
            for (int point = 0; point < kPoints * kPoints; ++point) {
                const double pointX = x + (point % kPoints + 0.5) / kPoints;
                const int row = point / kPoints;
                const double pointY = y + (row + 0.5) / kPoints;
                if (inside(pointX, pointY)) ++hits;
            }
            const int ink = hits * 255 / (kPoints * kPoints);
            if (ink > *pixel) *pixel = static_cast<std::uint8_t>(ink);
        }
    }
}

}  // namespace tools
