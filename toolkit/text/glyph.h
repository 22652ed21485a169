#pragma once

#include <cstdint>

/// Draws one character into cell (column, line) of graphic window `window`, both from 1, and
/// records the cell; what all text output ends in. The cursor does not move.
/// symbol   the character's code; none is a control code here
/// color    high four bits foreground, low four bits background, each a colour number 0 to 15; the
///          window's TextInverse makes them trade places, in the record too
/// Where the window's output is redirected (TextRedirectOutput), the character goes to standard
/// output as UTF-8 (2) or nowhere (any value but 1 and 2), and nothing else happens. A character
/// that the font does not draw is recorded only; one beyond the font's data is drawn as a blank.
/// Program thread; no lock.
/// Faults, without effect:
///   "t_PrintSymbol: Window is not a graphic window."
///   "t_PrintSymbol: Window #<window> not initialized."   also without a text block or a font
///   "t_PrintSymbol: Window #<window> illegal coordinates (x = <column>, y = <line>)."
/// Faults after which the cell is recorded, but nothing drawn:
///   "t_PrintSymbol: Font format must be uncompressed grey for text-printing."
///   "t_PrintSymbol: Illegal font format."
///
/// The window's text block, h = half the block's length:
///   TextMemoryStart      +h                    TextMemoryEnd
///   | characters, line by line | colour bytes, same order |
void t_PrintSymbol(std::uint8_t window, std::uint8_t symbol, std::uint8_t color,
                   std::int64_t column, std::int64_t line);

namespace toolkit {

/// Draws `symbol` in the window's current colours into the cells `firstColumn` to `lastColumn` of
/// `line`, none when the order is reversed; at most 8,192 cells, more than any grid is wide. As
/// t_PrintSymbol, cell by cell.
void FillCells(std::uint8_t window, std::uint8_t symbol, std::int64_t firstColumn,
               std::int64_t lastColumn, std::int64_t line);

}  // namespace toolkit
