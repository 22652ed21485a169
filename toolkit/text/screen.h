#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// What the screen shows, as text for other programs. Any thread.

/// The text grid as a string: lines without their trailing blanks, separated by carriage returns,
/// without empty lines at the end. `separator` stands after each line of the grid before the lines
/// are cut at carriage returns.
/// Faults, after which it is empty:
///   "t_GetScreen: Window is not a graphic window."    window is 8 or more
///   "t_GetScreen: Window #<window> not initialized."  toolkit not ready, window not set up or
///                                                     without a text block
[[nodiscard]] std::string t_GetScreen(std::uint8_t window, std::string_view separator);

/// A text grid's text for other programs: the font's graphics characters, codes 127 to 160, become
/// plain look-alikes. Nothing is printed.
[[nodiscard]] std::string t_ExportText(std::string_view string);
