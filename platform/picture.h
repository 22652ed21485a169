#pragma once

#include <bit>
#include <cstdint>
#include <vector>

// Colours and finished pictures as they cross the seam. Plain values; any thread.

namespace platform {

struct Color {
    std::uint8_t Alpha = 255;
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;

    bool operator==(const Color&) const = default;
};

/// How the four bytes of a pixel lie in memory, lowest address first.
enum class PixelOrder : std::uint8_t {
    AlphaRedGreenBlue,
    BlueGreenRedAlpha,
};

/// The order in which a pixel read as one 32-bit number is 0xAARRGGBB on this machine.
inline constexpr PixelOrder kNativeWordOrder = std::endian::native == std::endian::little
                                                   ? PixelOrder::BlueGreenRedAlpha
                                                   : PixelOrder::AlphaRedGreenBlue;

/// A finished picture; whoever holds it owns its bytes.
struct Picture {
    std::int64_t Width = 0;   // pixels
    std::int64_t Height = 0;  // pixels
    PixelOrder Order = PixelOrder::AlphaRedGreenBlue;
    std::vector<std::uint8_t> Bytes;  // 4 * Width * Height, top row first, nothing between rows

    bool operator==(const Picture&) const = default;
};

/// Rows of a picture, counted from 0 at its top: those from First on that come before End.
struct Rows {
    std::int64_t First = 0;
    std::int64_t End = 0;

    bool operator==(const Rows&) const = default;
};

}  // namespace platform
