#pragma once

#include <cstdint>
#include <span>

#include "toolkit/core/color.h"

// Single pixels of a graphic window's picture, at every depth. Columns count from 0 at the left,
// rows from 0 at the top; what lies outside the picture is left out. Any thread; a pixel shows with
// the window's next frame.
//
// A picture of 24 or 32 bits takes a color as it is. At 8 and 16 bits its brightness is taken, the
// mean of red, green and blue; at 4 bits the nearest of the sixteen colors (t_PaletteColor names
// them); at 1 bit white for a brightness of 128 or more, else black. Alpha is not used.
//
// Faults, each under the name of the operation:
//   "<operation>: Window is not a graphic window."
//   "<operation>: Window #<window> not initialized."

namespace korvandi {

/// Sets one pixel of graphic window `window` (0 to 7): korvandi::SetPixel(0, 10, 20, {255, 0, 0, 0})
/// makes a black one.
void SetPixel(std::uint8_t window, std::int64_t x, std::int64_t y, const t_RGBColor& color);

/// Sets pixels side by side from column `x` on: much faster than one by one.
void SetPixels(std::uint8_t window, std::int64_t x, std::int64_t y,
               std::span<const t_RGBColor> colors);

/// The color that a frame shows there, with an Alpha of 255; all 0 outside the picture and after a
/// fault.
[[nodiscard]] t_RGBColor Pixel(std::uint8_t window, std::int64_t x, std::int64_t y);

}  // namespace korvandi
