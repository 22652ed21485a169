#pragma once

#include <cstdint>
#include <string_view>

#include "toolkit/core/text.h"
#include "toolkit/window/window.h"

// A window's console: prints at the text cursor, wraps at the right edge of the text area, scrolls
// at its bottom, obeys control codes and display modes. Program thread; no lock. Every operation
// prints, without further effect,
//   "<operation>: Window is not a graphic window."    window is 8 or more
//   "<operation>: Window #<window> not initialized."  toolkit not ready, window not set up or, but
//                                                     for the six setters, without a text block
//
// Display modes: what becomes of a character code k
//   0       nothing
//   1       32 to 127 become k + 128
//   2       96 to 127 become k + 32, 64 to 95 become k - 64
//   3       0 to 31 are shown as k + 64 in inverse
//   4       0 to 31 are shown as k + 64 in colour 1
//   99      the character is an escape command; one that is none is printed
//   others  nothing
// Below mode 3 the codes 0 to 31 are control codes.

/// Prints the characters of a string; those above 255 as a question mark. A typed Control-S stops
/// output at the end of the string and at each carriage return until the next key or menu event.
/// Fault besides those above: "t_Print: Window #<window> has no text font."
void t_Print(std::uint8_t window, std::string_view string);
/// The same for the bytes of a Text.
void t_Print(std::uint8_t window, const Text& text);

/// Prints one character code through the display mode. Control codes are drawn as characters, not
/// obeyed: t_PrintControl obeys them.
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
