#include "toolkit/graphics/pixel_rows.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#include <utility>

#include "toolkit/core/shared_bytes.h"
#include "toolkit/graphics/palette.h"

// Every depth has one plain loop, right on every machine. The depths from 8 bits on also have one
// that takes 16 pixels at a time: each four pixels of the result are one shuffle of source bytes,
// which x86 has from SSSE3 on. All compare while they write: reading what stands there costs
// nothing beside the memory traffic of writing it.

namespace toolkit {

namespace {

using enum platform::PixelOrder;
using platform::PixelOrder;

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

// Writes a unit and returns in which bits it differs from what was there.
template <typename Unit>
Unit Put(const Unit& fresh, std::uint8_t* place) {
    Unit old;
    std::memcpy(&old, place, sizeof old);
    std::memcpy(place, &fresh, sizeof fresh);
    return old ^ fresh;
}

template <typename Unit>
bool IsAnySet(const Unit& bits) {
    constexpr Unit kNone{};
    return std::memcmp(&bits, &kNone, sizeof bits) != 0;
}

// The entries of a table are so many units long.
template <typename Unit, const auto& Table>
bool FromTable(const std::uint8_t* source, std::uint8_t* pixels, std::int64_t count) {
    constexpr std::size_t kUnits = sizeof(Table[0]) / sizeof(Unit);
    Unit differences{};
    for (std::int64_t left = count * 4; left > 0; left -= std::int64_t{sizeof(Table[0])}) {
        Unit entry[kUnits];
        std::memcpy(entry, &Table[LoadByte(source++)], sizeof entry);
        for (const Unit& unit : entry) {
            differences |= Put(unit, pixels);
            pixels += sizeof unit;
        }
    }
    return IsAnySet(differences);
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
bool Plain(const std::uint8_t* source, std::uint8_t* pixels, std::int64_t count) {
    std::uint32_t differences = 0;
    for (; count > 0; --count, source += From::kBytes, pixels += 4) {
        const Pixel pixel =
            PixelOf<Order>(LoadByte(source + From::kRed), LoadByte(source + From::kGreen),
                           LoadByte(source + From::kBlue));
        differences |= Put(std::bit_cast<std::uint32_t>(pixel), pixels);
    }
    return differences != 0;
}

#if defined(__x86_64__)
#define KORVANDI_SHUFFLES __attribute__((target("ssse3")))

constexpr int kOpaque = 16;  // in a shuffle: the first byte of the second operand, which is 255

// Where byte `i` of four finished pixels comes from when the source pixels begin at byte `start`.
template <typename From, PixelOrder Order>
consteval int SourceOf(std::size_t i, int start) {
    const int components[] = {From::kRed, From::kGreen, From::kBlue};
    const int pixel = start + static_cast<int>(i / 4) * From::kBytes;
    const int place =
        Order == AlphaRedGreenBlue ? static_cast<int>(i % 4) - 1 : 2 - static_cast<int>(i % 4);
    return place < 0 ? kOpaque : pixel + components[place];
}

// Pixels 4 * Quarter and on of the sixteen in `vectors`.
template <typename From, PixelOrder Order, int Quarter, std::size_t... I>
KORVANDI_SHUFFLES inline Bytes16 FourPixels(const Bytes16* vectors, std::index_sequence<I...>) {
    constexpr int kStart = Quarter * 4 * From::kBytes;
    constexpr int kFirst = kStart / 16;
    constexpr int kShift = kStart % 16;
    const Bytes16 opaque = Bytes16{} + 255;
    if constexpr (kShift + 4 * From::kBytes <= 16) {
        return __builtin_shufflevector(vectors[kFirst], opaque,
                                       SourceOf<From, Order>(I, kShift)...);
    } else {
        const Bytes16 window = __builtin_shufflevector(vectors[kFirst], vectors[kFirst + 1],
                                                       (kShift + static_cast<int>(I))...);
        return __builtin_shufflevector(window, opaque, SourceOf<From, Order>(I, 0)...);
    }
}

template <typename From, PixelOrder Order>
KORVANDI_SHUFFLES bool Shuffled(const std::uint8_t* source, std::uint8_t* pixels,
                                std::int64_t count) {
    if (reinterpret_cast<std::uintptr_t>(source) % 16 != 0) {
        return Plain<From, Order>(source, pixels, count);
    }
    constexpr auto kAll = std::make_index_sequence<16>();
    Bytes16 differences{};
    for (; count >= 16; count -= 16, source += 16 * From::kBytes, pixels += 64) {
        Bytes16 vectors[From::kBytes];
        for (int i = 0; i < From::kBytes; ++i) vectors[i] = Load16(source + std::ptrdiff_t{16} * i);
        const Bytes16 finished[] = {
            FourPixels<From, Order, 0>(vectors, kAll), FourPixels<From, Order, 1>(vectors, kAll),
            FourPixels<From, Order, 2>(vectors, kAll), FourPixels<From, Order, 3>(vectors, kAll)};
        for (int q = 0; q < 4; ++q)
            differences |= Put(finished[q], pixels + std::ptrdiff_t{16} * q);
    }
    const bool restDiffers = Plain<From, Order>(source, pixels, count);
    return IsAnySet(differences) || restDiffers;
}

#undef KORVANDI_SHUFFLES

bool HasShuffles() {
    static const bool has = __builtin_cpu_supports("ssse3") != 0;
    return has;
}
#endif

template <typename From, PixelOrder Order>
PixelConverter Fastest() {
#if defined(__x86_64__)
    if (HasShuffles()) return Shuffled<From, Order>;
#endif
    return Plain<From, Order>;
}

template <PixelOrder Order>
PixelConverter Converter(std::int64_t bitDepth) {
    switch (bitDepth) {
        case 1:
            return FromTable<Bytes16, kPixelsOf1Bit<Order>>;
        case 4:
            return FromTable<Word, kPixelsOf4Bits<Order>>;
        case 8:
            return Fastest<Layout8, Order>();
        case 16:
            return Fastest<Layout16, Order>();
        case 24:
            return Fastest<Layout24, Order>();
        case 32:
            return Fastest<Layout32, Order>();
        default:
            return nullptr;
    }
}

}  // namespace

PixelConverter ConverterFor(std::int64_t bitDepth, PixelOrder order) {
    return order == AlphaRedGreenBlue ? Converter<AlphaRedGreenBlue>(bitDepth)
                                      : Converter<BlueGreenRedAlpha>(bitDepth);
}

}  // namespace toolkit
