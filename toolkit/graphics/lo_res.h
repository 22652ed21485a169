#pragma once

#include <cstdint>

// Block graphics on the text grid. Every cell holds two blocks, one above the other; the cell's
// colour byte holds both colours, the upper block's in the high four bits, and the cell is drawn as
// character 3, whose glyph is ink in its upper half.
//
//   block (bx, by), both from 0, lies in column bx + 1, line by / 2 + 1
//     bx 0   1
//   by 0 | A | B |   even by: upper block, high four bits of the colour byte
//      1 | C | D |   odd by:  lower block, low four bits
//
// A plot point (x, y) stands, with the offsets OX and OY, for
//   mode 0   block (OX + x, OY + y)
//   mode 1   blocks (OX + 2x, OY + y) and the one to its right
//   mode 2   block (OX + 2x, OY + 2y), the one to its right, and the two below these
//   mode 3   quarter (OX + x, OY + y) of a cell
// Program thread; no lock. Every operation prints, without further effect,
//   "<operation>: Window is not a graphic window."    window is 8 or more
//   "<operation>: Window #<window> not initialized."  toolkit not ready, window not set up or, but
//                                                     for the two setters, without a text block

/// Stores the mode; any number.
void t_LoResMode(std::uint8_t window, std::int64_t mode);

/// Stores the origin of the lo-res grid in blocks (mode 3: in quarters); any numbers.
void t_LoResOffset(std::uint8_t window, std::int64_t offsetX, std::int64_t offsetY);

/// Colours the blocks of plot point (x, y), from 0, in the current colour. Blocks outside the grid
/// are left out. The other half of a cell keeps what the cell's colour byte says. In a cell that
/// held text or nothing that is the old background for the lower half, and the old foreground for
/// the upper one: the first plot with odd y in a cell of a new window makes its upper half green.
/// Fault: "t_Plot: Illegal graphic mode."
void t_Plot(std::uint8_t window, std::int64_t x, std::int64_t y);

/// Colours one block, from 0; nothing outside the grid. Faults as t_Plot's, under its own name.
void t_PlotBlock(std::uint8_t window, std::int64_t blockX, std::int64_t blockY);

/// Plots (true) or unplots one quarter of a cell, from 0; nothing outside the grid. A cell whose
/// character is no quarter-block code (0 to 14, 32) keeps its character. Logs
///   "t_PlotHalfSize: PixelByte = <code>, x = <x>, y = <y>, Plot position <0 to 3>"
void t_PlotHalfSize(std::uint8_t window, std::int64_t x, std::int64_t y, bool plot);

/// The colour number of the block that plot point (x, y) names (its first one); -1 outside the
/// grid, in mode 3 and unknown modes, and after a fault.
[[nodiscard]] std::int64_t t_Scrn(std::uint8_t window, std::int64_t x, std::int64_t y);
