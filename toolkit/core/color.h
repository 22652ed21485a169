#pragma once

#include <cstdint>

/// A colour, and the pixel of a frame. Aligned as the word that it is, so that every compiler reads
/// and writes a shared one in a single step.
struct alignas(4) t_RGBColor {
    std::uint8_t Alpha = 255;
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;

    friend bool operator==(const t_RGBColor& a, const t_RGBColor& b) = default;
};
