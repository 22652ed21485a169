#pragma once

#include <cstdint>
#include <string_view>

#include "toolkit/core/text.h"
#include "toolkit/window/window.h"

// A window's console: prints at the text cursor, wraps at the right edge of the text area, scrolls
// at its bottom, obeys control codes and display modes. print.cpp prints and has the setters,
// control_codes.cpp obeys control codes, display_mode.cpp has display modes and escape commands.
// Program thread; no lock. Every operation prints, without further effect,
//   "<operation>: Window is not a graphic window."    window is 8 or more
//   "<operation>: Window #<window> not initialized."  toolkit not ready, window not set up or, but
//                                                     for the six setters, without a text block
//
// Control codes, obeyed by t_PrintControl, and by t_Print while the display mode is below 3; the
// other codes from 0 to 31 do nothing
//    7  the warning sound            19  display mode 0
//    8  t_CursorLeft                 20  display mode 1
//   10  t_CursorDown                 22  t_ScrollDown
//   11  t_ClearEndOfWindow           23  t_ScrollUp
//   12  as 25, then as 11            25  t_CursorHome
//   13  t_Cr                         26  as 18, then as 29
//   14  t_Normal                     27  display mode 99: an escape command follows
//   15  t_Inverse                    28  t_CursorRight
//   17  t_Reverse                    29  t_ClearEndOfLine
//   18  t_Htab, to column 1          30  t_CursorUp
//                                    31  display mode 2
//
// Display modes: what becomes of a character code k
//   0       nothing
//   1       32 to 127 become k + 128
//   2       96 to 127 become k + 32, 64 to 95 become k - 64
//   3       0 to 31 are shown as k + 64 in inverse
//   4       0 to 31 are shown as k + 64 in colour 1
//   99      the character is an escape command
//   others  nothing; codes 0 to 31 are obeyed below 3 and drawn as characters above
//
// Escape commands: they print nothing and set the mode to 0. A character that is none is printed,
// control codes too, and the mode stays 99.
//   @ and A to O   64 to 79    foreground colour k - 64
//   P to _         80 to 95    background colour k - 80
//   e              101         t_CursorEnd
//   f              102         the last column of the grid
//   i, j, k        105 to 107  blanks up to the next stop of every 10, 20 or 40 columns; behind the
//                              last one clears the rest of the line and goes to the next line
//   n and on       110 to 127  t_ColorBorder with k - 110 modulo 16

/// Prints the characters of a string; those above 255 as a question mark. A typed Control-S stops
/// output at the end of the string and at each carriage return until the next key or menu event.
/// Fault besides those above: "t_Print: Window #<window> has no text font."
void t_Print(std::uint8_t window, std::string_view string);
/// The same for the bytes of a Text.
void t_Print(std::uint8_t window, const Text& text);

/// Prints one character code through the display mode at the cursor, in the current colours, and
/// moves the cursor. As t_Print of one character, but no control code is obeyed: below mode 3 the
/// codes 0 to 31 draw their glyphs, which is how block graphics are printed. Nor does a typed
/// Control-S stop it. t_PrintSymbol draws anywhere and in any colour, past the display mode, and
/// leaves the cursor where it is.
void t_PrintChar(std::uint8_t window, std::uint8_t code);

/// Executes one control code, 7 to 31; others do nothing. With redirected output the code goes
/// there instead.
void t_PrintControl(std::uint8_t window, std::uint8_t code);

/// What t_ApplyDisplayMode gives: the code to draw, which is nothing when below 0 or above 255, and
/// what TextInverse and TextColor are to be after it was drawn.
struct t_DisplayCode {
    std::int64_t Code = -2;
    bool Inverse = false;
    std::uint8_t Color = 0xF0;
};

/// Sends a character code through the window's display mode. May change TextInverse and TextColor
/// for drawing; executes an escape command (code -1). After a fault: code -2, false, 0xF0.
t_DisplayCode t_ApplyDisplayMode(std::uint8_t window, std::int64_t code);

/// Prints `fill` up to the column before `column` (from 1, absolute); nothing when the cursor is
/// there already.
void t_PrintTab(std::uint8_t window, std::int64_t column, std::uint8_t fill);

/// Prints `count` blanks.
void t_PrintSpc(std::uint8_t window, std::int64_t count);

/// Sets the display mode; any number.
void t_DisplayMode(std::uint8_t window, std::int64_t mode);
void t_Normal(std::uint8_t window);
void t_Inverse(std::uint8_t window);
/// Exchanges normal and inverse.
void t_Reverse(std::uint8_t window);

/// The current colour of text and plots: colour number `color` modulo 16. The background stays.
/// A window that was opened has colour 12, green, on 0, black. At 1 bit a colour shows white only
/// where the mean of its red, green and blue is 128 or more: 3, 10, 11, 13, 14 and 15. Text in the
/// green of a new window is black on black there until another colour is set.
void t_Color(std::uint8_t window, std::int64_t color);

/// Where the window's text output goes: 1 window, 2 standard output, any other number nowhere. May
/// be called on any thread.
void t_RedirectOutput(std::uint8_t window, std::int64_t mode);

/// Whether the newest key event has the value `key`. Then all key events are dropped and, when
/// `wait`, the call returns only after another key event, which is taken, or a menu event.
bool t_PrintPause(std::int64_t key, bool wait);

namespace toolkit {

/// As t_ApplyDisplayMode, for a window that was checked before.
t_DisplayCode ThroughDisplayMode(std::uint8_t window, t_Window& w, std::int64_t code);

}  // namespace toolkit
