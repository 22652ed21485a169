#include "toolkit/graphics/pixel_rows.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstring>

#include "toolkit/graphics/palette.h"

// Every depth has one plain loop, right on every machine. On little-endian machines the depths from
// 8 bits on take 16 bytes at a time through the compilers' vector extensions; 24 and 32 bits need a
// byte shuffle for that, which x86 has from SSSE3 on.

namespace toolkit {

namespace {

using enum platform::PixelOrder;
using platform::PixelOrder;

constexpr bool kLittleEndian = std::endian::native == std::endian::little;

// A pixel as the four bytes that lie in memory.
using Pixel = std::array<std::uint8_t, 4>;

template <PixelOrder Order>
constexpr Pixel PixelOf(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
    if constexpr (Order == AlphaRedGreenBlue) return {255, red, green, blue};
    return {blue, green, red, 255};
}

template <PixelOrder Order>
constexpr Pixel PaletteEntry(std::size_t n) {
    return PixelOf<Order>(t_Palette.Red[n], t_Palette.Green[n], t_Palette.Blue[n]);
}

// The finished pixels of every value of one source byte.
template <PixelOrder Order>
consteval auto TableOf1Bit() {
    std::array<std::array<Pixel, 8>, 256> table{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        for (std::size_t x = 0; x < 8; ++x) {
            table.at(byte).at(x) = PaletteEntry<Order>((byte >> (7 - x) & 1) != 0 ? 15 : 0);
        }
    }
    return table;
}

template <PixelOrder Order>
consteval auto TableOf4Bits() {
    std::array<std::array<Pixel, 2>, 256> table{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        table.at(byte) = {PaletteEntry<Order>(byte >> 4), PaletteEntry<Order>(byte & 15)};
    }
    return table;
}

template <PixelOrder Order>
constexpr auto kPixelsOf1Bit = TableOf1Bit<Order>();
template <PixelOrder Order>
constexpr auto kPixelsOf4Bits = TableOf4Bits<Order>();

template <const auto& Table>
void FromTable(const std::uint8_t* source, std::uint8_t* pixels, std::int64_t count) {
    constexpr std::size_t kEntry = sizeof(Table[0]);
    for (std::int64_t left = count * 4; left > 0; left -= std::int64_t{kEntry}) {
        std::memcpy(pixels, &Table[*source++], kEntry);
        pixels += kEntry;
    }
}

// Where red, green and blue of a pixel of that many source bytes lie.
template <int Bytes, int Red, int Green, int Blue>
struct Layout {
    static constexpr int kBytes = Bytes;
    static constexpr int kRed = Red;
    static constexpr int kGreen = Green;
    static constexpr int kBlue = Blue;
};

using Layout8 = Layout<1, 0, 0, 0>;
using Layout16 = Layout<2, 1, 1, 1>;
using Layout24 = Layout<3, 0, 1, 2>;
using Layout32 = Layout<4, 1, 2, 3>;

template <typename From, PixelOrder Order>
void Plain(const std::uint8_t* source, std::uint8_t* pixels, std::int64_t count) {
    for (; count > 0; --count, source += From::kBytes, pixels += 4) {
        const Pixel pixel =
            PixelOf<Order>(source[From::kRed], source[From::kGreen], source[From::kBlue]);
        std::memcpy(pixels, pixel.data(), pixel.size());
    }
}

// 16 bytes as a vector.
using Bytes16 [[gnu::vector_size(16)]] = std::uint8_t;
using Halves8 [[gnu::vector_size(16)]] = std::uint16_t;

Bytes16 Load(const std::uint8_t* at) {
    Bytes16 bytes;
    std::memcpy(&bytes, at, sizeof bytes);
    return bytes;
}

template <typename Vector>
void Store(std::uint8_t* at, Vector vector) {
    std::memcpy(at, &vector, sizeof vector);
}

// a0 b0 a1 b1 ... of the lower and of the upper half.
Bytes16 InterleaveLow(Bytes16 a, Bytes16 b) {
    return __builtin_shufflevector(a, b, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
}
Bytes16 InterleaveHigh(Bytes16 a, Bytes16 b) {
    return __builtin_shufflevector(a, b, 8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13, 29, 14, 30, 15,
                                   31);
}
Halves8 InterleaveLow(Halves8 a, Halves8 b) {
    return __builtin_shufflevector(a, b, 0, 8, 1, 9, 2, 10, 3, 11);
}
Halves8 InterleaveHigh(Halves8 a, Halves8 b) {
    return __builtin_shufflevector(a, b, 4, 12, 5, 13, 6, 14, 7, 15);
}

// Eight pixels from their first and their second two bytes.
void StorePixels(std::uint8_t* pixels, Halves8 first, Halves8 second) {
    Store(pixels, InterleaveLow(first, second));
    Store(pixels + 16, InterleaveHigh(first, second));
}

template <PixelOrder Order>
void Vector8(const std::uint8_t* source, std::uint8_t* pixels, std::int64_t count) {
    const Bytes16 opaque = Bytes16{} + 255;
    for (; count >= 16; count -= 16, source += 16, pixels += 64) {
        const Bytes16 grey = Load(source);
        const auto low = std::bit_cast<Halves8>(InterleaveLow(grey, grey));
        const auto high = std::bit_cast<Halves8>(InterleaveHigh(grey, grey));
        if constexpr (Order == AlphaRedGreenBlue) {
            StorePixels(pixels, std::bit_cast<Halves8>(InterleaveLow(opaque, grey)), low);
            StorePixels(pixels + 32, std::bit_cast<Halves8>(InterleaveHigh(opaque, grey)), high);
        } else {
            StorePixels(pixels, low, std::bit_cast<Halves8>(InterleaveLow(grey, opaque)));
            StorePixels(pixels + 32, high, std::bit_cast<Halves8>(InterleaveHigh(grey, opaque)));
        }
    }
    Plain<Layout8, Order>(source, pixels, count);
}

template <PixelOrder Order>
void Vector16(const std::uint8_t* source, std::uint8_t* pixels, std::int64_t count) {
    for (; count >= 8; count -= 8, source += 16, pixels += 32) {
        const auto pairs = std::bit_cast<Halves8>(Load(source));
        const Halves8 grey = pairs >> 8;
        const Halves8 both = grey | (pairs & 0xFF00);
        if constexpr (Order == AlphaRedGreenBlue) {
            StorePixels(pixels, pairs | 0x00FF, both);
        } else {
            StorePixels(pixels, both, grey | 0xFF00);
        }
    }
    Plain<Layout16, Order>(source, pixels, count);
}

#if defined(__x86_64__)
#define KORVANDI_SHUFFLES __attribute__((target("ssse3")))

// Sixteen pixels at a time; four source pixels become one vector of four, alpha from the second
// operand.
template <PixelOrder Order>
KORVANDI_SHUFFLES void Shuffled24(const std::uint8_t* source, std::uint8_t* pixels,
                                  std::int64_t count) {
    const Bytes16 opaque = Bytes16{} + 255;
    for (; count >= 16; count -= 16, source += 48, pixels += 64) {
        for (int i = 0; i < 4; ++i) {
            Bytes16 four;
            std::memcpy(&four, source + 12 * i, sizeof four);
            Bytes16 out;
            if constexpr (Order == AlphaRedGreenBlue) {
                out = __builtin_shufflevector(four, opaque, 16, 0, 1, 2, 16, 3, 4, 5, 16, 6, 7, 8,
                                              16, 9, 10, 11);
            } else {
                out = __builtin_shufflevector(four, opaque, 2, 1, 0, 16, 5, 4, 3, 16, 8, 7, 6, 16,
                                              11, 10, 9, 16);
            }
            std::memcpy(pixels + 16 * i, &out, sizeof out);
        }
    }
    Plain<Layout24, Order>(source, pixels, count);
}

template <PixelOrder Order>
KORVANDI_SHUFFLES void Shuffled32(const std::uint8_t* source, std::uint8_t* pixels,
                                  std::int64_t count) {
    const Bytes16 opaque = Bytes16{} + 255;
    for (; count >= 4; count -= 4, source += 16, pixels += 16) {
        Bytes16 four;
        std::memcpy(&four, source, sizeof four);
        Bytes16 out;
        if constexpr (Order == AlphaRedGreenBlue) {
            out = __builtin_shufflevector(four, opaque, 16, 1, 2, 3, 16, 5, 6, 7, 16, 9, 10, 11, 16,
                                          13, 14, 15);
        } else {
            out = __builtin_shufflevector(four, opaque, 3, 2, 1, 16, 7, 6, 5, 16, 11, 10, 9, 16, 15,
                                          14, 13, 16);
        }
        std::memcpy(pixels, &out, sizeof out);
    }
    Plain<Layout32, Order>(source, pixels, count);
}

#undef KORVANDI_SHUFFLES

bool HasShuffles() {
    static const bool has = __builtin_cpu_supports("ssse3") != 0;
    return has;
}
#endif

template <PixelOrder Order>
PixelConverter PlainConverter(std::int64_t bitDepth) {
    switch (bitDepth) {
        case 1:
            return FromTable<kPixelsOf1Bit<Order>>;
        case 4:
            return FromTable<kPixelsOf4Bits<Order>>;
        case 8:
            return Plain<Layout8, Order>;
        case 16:
            return Plain<Layout16, Order>;
        case 24:
            return Plain<Layout24, Order>;
        case 32:
            return Plain<Layout32, Order>;
        default:
            return nullptr;
    }
}

template <PixelOrder Order>
PixelConverter FastConverter(std::int64_t bitDepth) {
    if (kLittleEndian && bitDepth == 8) return Vector8<Order>;
    if (kLittleEndian && bitDepth == 16) return Vector16<Order>;
#if defined(__x86_64__)
    if (bitDepth == 24 && HasShuffles()) return Shuffled24<Order>;
    if (bitDepth == 32 && HasShuffles()) return Shuffled32<Order>;
#endif
    return PlainConverter<Order>(bitDepth);
}

}  // namespace

PixelConverter ConverterFor(std::int64_t bitDepth, PixelOrder order) {
    return order == AlphaRedGreenBlue ? FastConverter<AlphaRedGreenBlue>(bitDepth)
                                      : FastConverter<BlueGreenRedAlpha>(bitDepth);
}

}  // namespace toolkit
