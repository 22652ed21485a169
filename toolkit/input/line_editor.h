#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Reading a line of text in a window. Program thread. The field lives in the window's record, in
// the fields that begin with Input. The three field operations print, without further effect,
//   "<operation>: Window is not a graphic window."    window is 8 or more
//   "<operation>: Window #<window> not initialized."  toolkit not ready, window not set up or
//                                                     without a text block
//
// Input modes: the characters that a field accepts
//   2       digits; a minus sign at position 0
//   3       digits; one comma, also typed as a full stop; a minus sign at position 0 or after an e;
//           one e; upper-case letters count as lower-case
//   4       digits; one minus sign, but not at position 0
//   others  every character but code 0; mode 1 lets codes 1 to 31 be entered by number

/// Prints `prompt` and a field that begins with `field`, lets the person edit it until Return or
/// Escape, goes to the next line and returns the field's text, empty after Escape and after a
/// fault.
/// showOnly   only prints, and returns the field at once
/// inputMode  one of those above
/// maximum    most characters of the field; below 1: none
std::string t_InputForm(std::uint8_t window, std::string_view prompt, std::string_view field,
                        bool showOnly, std::int64_t inputMode, std::int64_t maximum);

/// Applies one key code to the window's field: moves the cursor, deletes, copies, pastes, clears,
/// or inserts a character, and redraws what changed.
void t_InputEdit(std::uint8_t window, std::int64_t key);

/// Inserts one character code at the input cursor if the field's mode and room allow it.
void t_InputInsert(std::uint8_t window, std::int64_t code);

/// Waits for one key: 1 for J and Y, 0 for N, `defaultAnswer` for Return and the space bar, -1 for
/// Escape, -2 for any other key. With `echo` shows J for 1 and N otherwise. Does not check the
/// window.
[[nodiscard]] std::int64_t t_InputYesNo(std::uint8_t window, std::int64_t defaultAnswer, bool echo);
