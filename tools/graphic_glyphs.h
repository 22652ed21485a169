#pragma once

// The glyphs that are drawn, not taken from an outline font: the block graphics (codes 0 to 31)
// and the graphics characters (codes 127 to 160).

#include <cstdint>

#include "tools/glyph_cell.h"

namespace tools {

/// Widths in pixels of the lines of one font. All are even, so that each line lies centred on the
/// middle of the cell: x = 8, y = 16.
struct Strokes {
    int Light = 0;
    int Heavy = 0;
    int Double = 0;  // both lines and the gap
    int Gap = 0;     // between the two lines of a double line
};

/// Whether `code` is one of the drawn glyphs.
[[nodiscard]] constexpr bool IsGraphic(int code) {
    return (code >= 0 && code < 32) || (code >= 127 && code <= 160);
}

/// The drawn glyph `code`. Line pieces, blocks and patterns reach the edges of the cell and go on
/// in the cells beside it. An empty cell for a code that is no drawn glyph.
[[nodiscard]] Cell GraphicGlyph(int code, const Strokes& strokes);

}  // namespace tools
