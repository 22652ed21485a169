#pragma once

// A picture to draw font cells into and to write as PNG. Coordinates are pixels from the upper
// left corner; what lies outside the picture is left out.

#include <cstdint>
#include <string>
#include <vector>

#include "tools/glyph_cell.h"

namespace tools {

struct Rgb {
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;
};

class Canvas {
  public:
    Canvas(int width, int height, Rgb paper);

    void Paint(const Box& box, Rgb color);

    /// Draws the ink of a cell, every pixel `scale` pixels wide and high.
    void DrawCell(const Cell& cell, int left, int top, Rgb ink, int scale = 1);

    /// Draws the ink of a cell at half its size.
    void DrawSmallCell(const Cell& cell, int left, int top, Rgb ink);

    /// Whether the file was written; if not, after one fault line on standard error.
    [[nodiscard]] bool WritePng(const std::string& path) const;

  private:
    void Blend(int x, int y, Rgb ink, int coverage);

    int width_;
    int height_;
    std::vector<std::uint8_t> bytes_;  // red, green, blue; top row first
};

}  // namespace tools
