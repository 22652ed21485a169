#pragma once

// Shapes of the drawn glyphs: whether the point (x, y) of a cell lies inside. Who wants a shape in
// another direction mirrors or turns the point.

#include "tools/glyph_cell.h"

namespace tools {

constexpr int kMiddleX = kCellWidth / 2;
constexpr int kMiddleY = kCellHeight / 2;

/// Height of a cell over its width; diagonals run from corner to corner.
constexpr double kSlope = static_cast<double>(kCellHeight) / kCellWidth;

/// Patterns repeat after 8 pixels, which divides both sides of the cell: they go on in the next.
constexpr int kPeriod = 8;

[[nodiscard]] bool InDisc(double x, double y, double centreX, double centreY, double radius);

/// The corner that joins the right edge with the lower edge: a quarter circle, and straight lines
/// from its ends to the edges, so that the neighbours join exactly.
[[nodiscard]] bool InRoundCorner(double x, double y, double width);

/// An arrow along its own axis: `along` runs from 0 at the end of the shaft to `length` at the tip,
/// `across` is the distance from the axis.
[[nodiscard]] bool InArrow(double along, double across, double length, double width);

/// A five-pointed star that stands on two of its points.
[[nodiscard]] bool InStar(double x, double y);

[[nodiscard]] bool InHeart(double x, double y);

/// A line from the lower left to the upper right corner of the cell, `width` pixels thick.
[[nodiscard]] bool InDiagonal(double x, double y, double width);

/// Diagonal lines both ways.
[[nodiscard]] bool InLattice(double x, double y, double width);

}  // namespace tools
