#pragma once

#include <cstdint>

// The text area, and rectangles of cells. Program thread; no lock. Every operation prints,
// without further effect,
//   "<operation>: Window is not a graphic window."    window is 8 or more
//   "<operation>: Window #<window> not initialized."  toolkit not ready, window not set up or, but
//                                                     for t_FullArea, without a text block

/// Redraws a rectangle of cells, from 1, with foreground and background exchanged. Nothing for one
/// that is reversed or leaves the grid.
void t_InvertRect(std::uint8_t window, std::int64_t firstColumn, std::int64_t firstLine,
                  std::int64_t lastColumn, std::int64_t lastLine);

/// Makes the whole grid the text area.
void t_FullArea(std::uint8_t window);
