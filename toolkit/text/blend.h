#pragma once

#include <array>
#include <cstdint>

// What each of the 256 grey values of a glyph becomes in one pair of colours. Tables are made once
// per pair, when it is first used, and kept; any thread. All pairs together take 450 KB.

namespace toolkit {

/// Colours mixed component by component: red, green, blue in the first three bytes, 0 in the
/// fourth. Grey is the mean of the two colours' brightness; Ink tells whether the mixed colour is
/// bright.
struct Blend {
    std::array<std::array<std::uint8_t, 4>, 256> Mixed;
    std::array<std::uint8_t, 256> Grey;
    std::array<std::uint8_t, 256> Ink;  // 0 or 1
};

/// `pair` holds the foreground colour number in its high four bits, the background in its low four.
[[nodiscard]] const Blend& BlendOf(std::uint8_t pair);

/// The number of the palette color nearest to red, green, blue; pure greys go to the palette's four
/// greys by their brightness.
[[nodiscard]] std::uint8_t NearestColor(const std::array<int, 3>& color);

/// The palette colours nearest to the mixed colours, as colour numbers.
[[nodiscard]] const std::array<std::uint8_t, 256>& NearestColorsOf(std::uint8_t pair);

}  // namespace toolkit
