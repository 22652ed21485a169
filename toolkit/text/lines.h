#pragma once

#include <cstdint>

// Horizontal lines of characters. Program thread; no lock. Every operation prints, without further
// effect,
//   "<operation>: Window is not a graphic window."    window is 8 or more
//   "<operation>: Window #<window> not initialized."  toolkit not ready, window not set up or
//                                                     without a text block

/// Draws a rule from the cursor to the area's last column and goes to the next line.
void t_TextLine(std::uint8_t window);

/// Draws character `code` into the cells firstColumn to lastColumn of `line`, from 1. The cursor
/// does not move. Cells outside the picture are reported by t_PrintSymbol, at most 8,192 of them.
void t_TextHline(std::uint8_t window, std::int64_t firstColumn, std::int64_t lastColumn,
                 std::int64_t line, std::uint8_t code);
