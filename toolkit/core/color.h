#pragma once

#include <cstdint>

#include "toolkit/core/shared.h"

/// A colour, and the pixel of a frame. Aligned as the word that it is.
struct alignas(4) t_RGBColor {
    std::uint8_t Alpha = 255;
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;

    friend bool operator==(const t_RGBColor& a, const t_RGBColor& b) = default;
};

namespace toolkit {

/// A colour whose components one thread writes and others read, black at first. Whoever reads it
/// meanwhile may see old components beside new ones.
struct SharedColor {
    SharedColor() = default;
    SharedColor& operator=(const t_RGBColor& color) {
        Alpha = color.Alpha;
        Red = color.Red;
        Green = color.Green;
        Blue = color.Blue;
        return *this;
    }

    operator t_RGBColor() const { return {Alpha, Red, Green, Blue}; }
    bool operator==(const SharedColor&) const = default;

    Shared<std::uint8_t> Alpha = 255;
    Shared<std::uint8_t> Red = 0;
    Shared<std::uint8_t> Green = 0;
    Shared<std::uint8_t> Blue = 0;
};

}  // namespace toolkit
