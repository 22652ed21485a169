#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/picture.h"
#include "toolkit/core/bit_depths.h"
#include "toolkit/core/palette.h"
#include "toolkit/graphics/pixel_converter.h"

// What the pixel loops share: where the bytes of finished pixels come from, and vectors made when
// the program is compiled.

namespace toolkit {

template <std::size_t Size>
using VectorBytes = std::array<std::uint8_t, Size>;

/// A vector whose byte i is what `byteOf` says.
template <std::size_t Size, typename ByteOf>
consteval VectorBytes<Size> MadeVector(const ByteOf& byteOf) {
    VectorBytes<Size> bytes{};
    for (std::size_t i = 0; i < Size; ++i) bytes.at(i) = static_cast<std::uint8_t>(byteOf(i));
    return bytes;
}

enum class Component : std::uint8_t { Red, Green, Blue, Alpha };

/// Byte `place` of a finished pixel.
template <platform::PixelOrder Order>
constexpr Component ComponentAt(std::size_t place) {
    using enum Component;
    constexpr std::array<Component, 4> kFront = {Alpha, Red, Green, Blue};
    constexpr std::array<Component, 4> kBack = {Blue, Green, Red, Alpha};
    return (Order == platform::PixelOrder::AlphaRedGreenBlue ? kFront : kBack).at(place);
}

/// 255 where an alpha byte stands.
template <std::size_t Size, platform::PixelOrder Order>
constexpr VectorBytes<Size> kOpaque = MadeVector<Size>([](std::size_t i) {
    return ComponentAt<Order>(i % 4) == Component::Alpha ? 255 : 0;
});

/// A component of a palette colour.
constexpr std::uint8_t PaletteByte(std::size_t color, Component component) {
    switch (component) {
        case Component::Red:
            return static_cast<std::uint8_t>(t_Palette.Red[color]);
        case Component::Green:
            return static_cast<std::uint8_t>(t_Palette.Green[color]);
        case Component::Blue:
            return static_cast<std::uint8_t>(t_Palette.Blue[color]);
        default:
            return 255;
    }
}

/// Byte `Place` of the finished pixels of colours 0 to 15, again and again.
template <std::size_t Size, platform::PixelOrder Order, std::size_t Place>
constexpr VectorBytes<Size> kPlaceOfPalette = MadeVector<Size>([](std::size_t i) {
    return PaletteByte(i % 16, ComponentAt<Order>(Place));
});

/// From which byte of the source byte `i` of finished pixels is taken, at 8 bits and more; any for
/// an alpha byte. Both are counted from the same pixel on.
template <int BitDepth, platform::PixelOrder Order>
constexpr std::size_t SourceByte(std::size_t i) {
    const auto component = static_cast<std::size_t>(ComponentAt<Order>(i % 4)) % 3;
    const std::size_t pixel = i / 4;
    if constexpr (BitDepth == 8) return pixel;
    if constexpr (BitDepth == 16) return 2 * pixel + 1;
    if constexpr (BitDepth == 24) return 3 * pixel + component;
    return 4 * pixel + 1 + component;
}

/// The `Count` bytes at `at` as one operand of an instruction that is written out.
template <std::size_t Count>
const auto& MemoryAt(const std::uint8_t* at) {
    return *reinterpret_cast<const std::uint8_t(*)[Count]>(at);
}

/// What Maker::Make<BitDepth, Order>() makes for a bit depth and an order; an empty converter for a
/// number that is no bit depth.
template <typename Maker, platform::PixelOrder Order>
PixelConverter ConverterBy(std::int64_t bitDepth) {
    PixelConverter converter;
    WithBitDepth(bitDepth, [&](auto depth) { converter = Maker::template Make<depth(), Order>(); });
    return converter;
}

template <typename Maker>
PixelConverter ConverterBy(std::int64_t bitDepth, platform::PixelOrder order) {
    using enum platform::PixelOrder;
    return order == AlphaRedGreenBlue ? ConverterBy<Maker, AlphaRedGreenBlue>(bitDepth)
                                      : ConverterBy<Maker, BlueGreenRedAlpha>(bitDepth);
}

}  // namespace toolkit
