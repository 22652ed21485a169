#pragma once

#include <cstdint>
#include <string_view>

#include "toolkit/font/font.h"

// Opening graphic windows. Program thread. The first window sets up the whole toolkit and starts
// the refresh loop. Problems are reported on standard output only.
//
// The picture lies in t_Memory from the window's MemoryStart on, row by row from the top without
// gaps. Where pixel i = y * Width + x lies in it, and what it shows:
//   bits  colours       pixel
//   1     black, white  bit 7 - x % 8 of byte i / 8: white when set
//   4     the sixteen   byte i / 2, even x in the high half: a colour number
//   8     256 greys     byte i
//   16    256 greys     the second of the two bytes from 2 i on; the first one means nothing
//   24    all           the three bytes from 3 i on: red, green, blue
//   32    all           the last three of the four bytes from 4 i on: red, green, blue; the first
//                       one means nothing
// Text in colour is mixed at 24 and 32 bits, becomes the nearest colour at 4, its brightness at 8
// and 16; at 1 bit it is white where it is bright. The text block holds a character byte for each
// cell of the grid, line by line, from TextMemoryStart on, and in its second half the colour bytes.

/// Opens graphic window `window` (0 to 7) for a grid of `columns` x `lines` characters of the font
/// file `fontName`, with a title bar, `border` pixels around the picture and automatic refresh.
/// bitDepth  1, 4, 8, 16, 24 or 32 bits per pixel
/// Fault: "t_InitWindow: Font '<fontName>' not found." and those of the other form.
void t_InitWindow(std::uint8_t window, std::int64_t bitDepth, std::int64_t columns,
                  std::int64_t lines, std::int64_t border, std::string_view fontName);

/// Opens graphic window `window` (0 to 7), or sets it up anew, with a picture of width x height
/// pixels. The window stays hidden, or as it is.
/// width, height  32 to 8192; otherwise 1280 or 800 is used after a line. At 4 bits the width is
///                rounded to a multiple of 4, at 1 bit to a multiple of 8, after a line.
/// borderWidth    pixels beside the picture; negative: the width of the screen less that of the
///                picture
/// borderHeight   pixels above and below the picture; negative: the same of the heights
/// font           empty Data: no text block, and "-Grafik" after the title
/// Faults, after which the window is not set up and has no blocks; P stands for
/// "t_InitWindow: GraphicWindow #<window>":
///   "t_InitWindow: Window is not a graphic window."
///   P " unsupported <bitDepth> bit depth."
///   P " has not enough graphic-video-memory (<free>K available)." and one line more
///   P " has not enough text-video-memory (<free>K available)." and one line more
///   P " could not be initialized, resource undefined."  no view; memory stays used
void t_InitWindow(std::uint8_t window, std::int64_t bitDepth, bool autoUpdate, std::int64_t width,
                  std::int64_t height, std::int64_t borderWidth, std::int64_t borderHeight,
                  const t_Font& font, bool titleVisible);

/// Clears both blocks of graphic window `window`: the picture black, the text blanks in the current
/// colour. Nothing for other numbers and for a window without blocks. Program thread.
void t_ClearWindowMemory(std::uint8_t window);
