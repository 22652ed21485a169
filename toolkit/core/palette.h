#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "toolkit/core/color.h"

// The sixteen colours, by colour number. Constant; any thread.

/// One table per component, as every reader takes them.
struct t_PaletteTables {
    std::array<std::uint8_t, 16> Red;
    std::array<std::uint8_t, 16> Green;
    std::array<std::uint8_t, 16> Blue;
};

namespace toolkit {

struct PaletteRow {
    std::uint8_t Red;
    std::uint8_t Green;
    std::uint8_t Blue;
};

inline constexpr PaletteRow kPaletteRows[16] = {
    {0, 0, 0},        // 0 black
    {255, 0, 0},      // 1 red
    {0, 0, 128},      // 2 dark blue
    {255, 0, 255},    // 3 purple
    {0, 128, 0},      // 4 dark green
    {84, 84, 84},     // 5 dark grey
    {0, 0, 255},      // 6 blue
    {0, 128, 255},    // 7 light blue
    {128, 64, 0},     // 8 brown
    {255, 128, 0},    // 9 orange
    {168, 168, 168},  // 10 light grey
    {255, 128, 128},  // 11 pink
    {0, 255, 0},      // 12 green
    {255, 255, 0},    // 13 yellow
    {0, 255, 255},    // 14 aqua
    {255, 255, 255},  // 15 white
};

consteval t_PaletteTables TablesOfPalette() {
    t_PaletteTables tables{};
    for (std::size_t n = 0; n < 16; ++n) {
        tables.Red.at(n) = kPaletteRows[n].Red;
        tables.Green.at(n) = kPaletteRows[n].Green;
        tables.Blue.at(n) = kPaletteRows[n].Blue;
    }
    return tables;
}

/// The colour number that `color` means: its low four bits.
[[nodiscard]] constexpr std::int64_t Modulo16(std::int64_t color) {
    return color & 15;
}

}  // namespace toolkit

inline constexpr t_PaletteTables t_Palette = toolkit::TablesOfPalette();

/// The opaque colour of a colour number; black for a number that is not 0 to 15.
[[nodiscard]] constexpr t_RGBColor t_PaletteColor(std::int64_t number) {
    if (number < 0 || number > 15) return {255, 0, 0, 0};
    const auto n = static_cast<std::size_t>(number);
    return {255, t_Palette.Red[n], t_Palette.Green[n], t_Palette.Blue[n]};
}
