#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// The text area, and the cells of the grid as a whole. Program thread; no lock. Every operation
// prints, without further effect,
//   "<operation>: Window is not a graphic window."    window is 8 or more
//   "<operation>: Window #<window> not initialized."  toolkit not ready, window not set up or,
//                                                     where cells are read or drawn, without text
//                                                     block

/// The current colour of text and plots: colour number `color` modulo 16. The background stays.
void t_Color(std::uint8_t window, std::int64_t color);

/// Redraws a rectangle of cells, from 1, with foreground and background exchanged. Nothing for one
/// that is reversed or leaves the grid.
void t_InvertRect(std::uint8_t window, std::int64_t firstColumn, std::int64_t firstLine,
                  std::int64_t lastColumn, std::int64_t lastLine);

/// Makes the whole grid the text area.
void t_FullArea(std::uint8_t window);

/// The text grid as a string: lines without their trailing blanks, separated by carriage returns,
/// without empty lines at the end. `separator` stands after each line of the grid before the lines
/// are cut at carriage returns. Empty after a fault. Any thread.
[[nodiscard]] std::string t_GetScreen(std::uint8_t window, std::string_view separator);
