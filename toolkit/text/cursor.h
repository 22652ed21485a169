#pragma once

#include <cstdint>

#include "toolkit/window/window.h"

// The text cursor: moving it, showing it, and blanking from it to the end of the line or the area.
// Columns and lines count from 1 and are absolute within the text grid. Program thread; no lock.
// Every operation prints, without further effect,
//   "<operation>: Window is not a graphic window."    window is 8 or more
//   "<operation>: Window #<window> not initialized."  toolkit not ready, window not set up or
//                                                     without a text block

/// To the `n`-th column of the text area, as far as the grid is wide; nothing for other numbers.
void t_Htab(std::uint8_t window, std::int64_t n);
/// To line `n` of the grid; nothing for other numbers.
void t_Vtab(std::uint8_t window, std::int64_t n);

/// One column right; behind the area's last column as t_Cr.
void t_CursorRight(std::uint8_t window);
/// One column left; before the area's first column to its last column, one line up.
void t_CursorLeft(std::uint8_t window);
/// One line down; on the area's last line the area scrolls up instead.
void t_CursorDown(std::uint8_t window);
/// One line up; on the area's first line the area scrolls down instead.
void t_CursorUp(std::uint8_t window);
/// To the area's first column, one line down.
void t_Cr(std::uint8_t window);
/// To the area's first column and line.
void t_CursorHome(std::uint8_t window);
/// To the area's last column and line.
void t_CursorEnd(std::uint8_t window);

/// Raises the cursor's level by one; the cursor shows from level 1 on, as the cell with its colours
/// exchanged. What moves the cursor or prints does not know of it: t_CursorOff draws where the
/// cursor is by then. So nothing should move it or print between the two calls, or a cell stays
/// exchanged: the new one after printing, the old and the new one after moving alone.
void t_CursorOn(std::uint8_t window);
/// Lowers it by one; it may go below 0.
void t_CursorOff(std::uint8_t window);
/// Exchanges the colours of the cell under the cursor; a second call restores them.
void t_CursorDraw(std::uint8_t window);

/// Blanks from the cursor to the area's last column. The cursor stays.
void t_ClearEndOfLine(std::uint8_t window);
/// The same, and blanks all lines of the area below. The cursor stays.
void t_ClearEndOfWindow(std::uint8_t window);

namespace toolkit {

/// As t_CursorRight, for a window that was checked before.
void AdvanceCursor(std::uint8_t window, t_Window& w);

}  // namespace toolkit
