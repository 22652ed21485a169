#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The line at the top of a screen.

/// Prints a line with `title` at the left and `credit` at the right edge of the text area, from the
/// cursor on, and goes to the next line. Program thread; no lock.
/// Faults, without further effect:
///   "t_Header: Window is not a graphic window."    window is 8 or more
///   "t_Header: Window #<window> not initialized."  toolkit not ready, window not set up or without
///                                                  a text block
void t_Header(std::uint8_t window, std::string_view title, std::string_view credit);

/// The text of such a line: exactly `width` characters, or title and credit cut to `width` where
/// they leave no room between them. Empty for a width below 1.
/// Any thread.
[[nodiscard]] std::string t_HeaderLine(std::string_view title, std::string_view credit,
                                       std::int64_t width);
