#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The visible text cursor, header and rule lines, and where text output goes. Program thread; no
// lock. Every operation with a window prints, without further effect,
//   "<operation>: Window is not a graphic window."    window is 8 or more
//   "<operation>: Window #<window> not initialized."  toolkit not ready, window not set up or, but
//                                                     for t_RedirectOutput, without a text block

/// Raises the cursor's level by one; the cursor shows from level 1 on.
void t_CursorOn(std::uint8_t window);
/// Lowers it by one; it may go below 0.
void t_CursorOff(std::uint8_t window);
/// Exchanges the colours of the cell under the cursor; a second call restores them.
void t_CursorDraw(std::uint8_t window);

/// Prints a line with `title` at the left and `credit` at the right edge of the text area, from the
/// cursor on, and goes to the next line.
void t_Header(std::uint8_t window, std::string_view title, std::string_view credit);

/// The text of such a line: exactly `width` characters, or title and credit cut to `width` where
/// they leave no room between them. Empty for a width below 1.
[[nodiscard]] std::string t_HeaderLine(std::string_view title, std::string_view credit,
                                       std::int64_t width);

/// Draws a rule from the cursor to the area's last column and goes to the next line.
void t_TextLine(std::uint8_t window);

/// Draws character `code` into the cells firstColumn to lastColumn of `line`, from 1. The cursor
/// does not move. Cells outside the picture are reported by t_PrintSymbol, at most 8,192 of them.
void t_TextHline(std::uint8_t window, std::int64_t firstColumn, std::int64_t lastColumn,
                 std::int64_t line, std::uint8_t code);

/// Where the window's text output goes: 1 window, 2 standard output, any other number nowhere. May
/// be called on any thread.
void t_RedirectOutput(std::uint8_t window, std::int64_t mode);
