#include "toolkit/graphics/pixel_rows.h"

#if defined(__x86_64__)
#include <tmmintrin.h>
#endif

#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#include <utility>

#include "toolkit/core/palette.h"
#include "toolkit/core/shared_bytes.h"
#include "toolkit/graphics/wide_pixels.h"

// Every depth has one plain loop, right on every machine. From 4 bits on there is also one that
// takes 16 source bytes or pixels at a time by byte shuffles, which x86 has from SSSE3 on; loops by
// larger vectors stand in half_wide_pixels.cpp and wide_pixels.cpp.

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

bool IsAnySet(std::uint64_t bits) {
    return bits != 0;
}

bool IsAnySet(Bytes16 bits) {
#if defined(__x86_64__)
    return _mm_movemask_epi8(__m128i(bits == 0)) != 0xFFFF;
#else
    Word words[2];
    std::memcpy(words, &bits, sizeof words);
    return (words[0] | words[1]) != 0;
#endif
}

// What the loops do with finished pixels, each returning whether the loop may end: they write them,
struct Write {
    template <typename Unit, std::size_t N>
    static bool Put(const Unit (&fresh)[N], std::uint8_t* place) {
        std::memcpy(place, fresh, sizeof fresh);
        return false;
    }
};

// or look for one that is not there yet.
struct Compare {
    template <typename Unit, std::size_t N>
    static bool Put(const Unit (&fresh)[N], const std::uint8_t* place) {
        Unit old[N];
        std::memcpy(old, place, sizeof old);
        Unit differences{};
        for (std::size_t i = 0; i < N; ++i) differences |= old[i] ^ fresh[i];
        return IsAnySet(differences);
    }
};

// The entries of a table are so many units long.
template <typename Unit, const auto& Table, typename Use>
bool FromTable(const std::uint8_t* source, std::uint8_t* pixels, std::int64_t count) {
    constexpr std::size_t kEntry = sizeof(Table[0]);
    for (std::int64_t left = count * 4; left > 0; left -= std::int64_t{kEntry}, pixels += kEntry) {
        Unit entry[kEntry / sizeof(Unit)];
        std::memcpy(entry, &Table[LoadByte(source++)], kEntry);
        if (Use::Put(entry, pixels)) return true;
    }
    return false;
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

template <typename From, PixelOrder Order, typename Use>
bool Plain(const std::uint8_t* source, std::uint8_t* pixels, std::int64_t count) {
    for (; count > 0; --count, source += From::kBytes, pixels += 4) {
        const Pixel pixel =
            PixelOf<Order>(LoadByte(source + From::kRed), LoadByte(source + From::kGreen),
                           LoadByte(source + From::kBlue));
        const std::uint32_t word[] = {std::bit_cast<std::uint32_t>(pixel)};
        if (Use::Put(word, pixels)) return true;
    }
    return false;
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

template <typename From, PixelOrder Order, typename Use>
KORVANDI_SHUFFLES bool Shuffled(const std::uint8_t* source, std::uint8_t* pixels,
                                std::int64_t count) {
    if (reinterpret_cast<std::uintptr_t>(source) % 16 != 0) {
        return Plain<From, Order, Use>(source, pixels, count);
    }
    constexpr auto kAll = std::make_index_sequence<16>();
    for (; count >= 16; count -= 16, source += 16 * From::kBytes, pixels += 64) {
        Bytes16 vectors[From::kBytes];
        for (int i = 0; i < From::kBytes; ++i) vectors[i] = Load16(source + std::ptrdiff_t{16} * i);
        const Bytes16 finished[] = {
            FourPixels<From, Order, 0>(vectors, kAll), FourPixels<From, Order, 1>(vectors, kAll),
            FourPixels<From, Order, 2>(vectors, kAll), FourPixels<From, Order, 3>(vectors, kAll)};
        if (Use::Put(finished, pixels)) return true;
    }
    return Plain<From, Order, Use>(source, pixels, count);
}

// Byte `Place` of the pixels of all colour numbers.
template <PixelOrder Order, std::size_t Place>
consteval std::array<std::uint8_t, 16> PlaceOfPalette() {
    std::array<std::uint8_t, 16> bytes{};
    for (std::size_t n = 0; n < 16; ++n) bytes.at(n) = PaletteEntry<Order>(n).at(Place);
    return bytes;
}

template <PixelOrder Order, std::size_t Place>
KORVANDI_SHUFFLES inline __m128i LookUp(__m128i numbers) {
    constexpr std::size_t kAlpha = Order == AlphaRedGreenBlue ? 0 : 3;
    if constexpr (Place == kAlpha) return _mm_set1_epi8(-1);
    static constexpr auto kBytes = PlaceOfPalette<Order, Place>();
    return _mm_shuffle_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(kBytes.data())),
                            numbers);
}

// Sixteen pixels of these colour numbers.
template <PixelOrder Order, typename Use>
KORVANDI_SHUFFLES inline bool PutNumbers(__m128i numbers, std::uint8_t* pixels) {
    const __m128i first = LookUp<Order, 0>(numbers);
    const __m128i second = LookUp<Order, 1>(numbers);
    const __m128i third = LookUp<Order, 2>(numbers);
    const __m128i fourth = LookUp<Order, 3>(numbers);
    const __m128i lowFront = _mm_unpacklo_epi8(first, second);
    const __m128i lowBack = _mm_unpacklo_epi8(third, fourth);
    const __m128i highFront = _mm_unpackhi_epi8(first, second);
    const __m128i highBack = _mm_unpackhi_epi8(third, fourth);
    const Bytes16 finished[] = {Bytes16(_mm_unpacklo_epi16(lowFront, lowBack)),
                                Bytes16(_mm_unpackhi_epi16(lowFront, lowBack)),
                                Bytes16(_mm_unpacklo_epi16(highFront, highBack)),
                                Bytes16(_mm_unpackhi_epi16(highFront, highBack))};
    return Use::Put(finished, pixels);
}

template <PixelOrder Order, typename Use>
KORVANDI_SHUFFLES bool Shuffled4Bits(const std::uint8_t* source, std::uint8_t* pixels,
                                     std::int64_t count) {
    if (reinterpret_cast<std::uintptr_t>(source) % 16 == 0) {
        for (; count >= 32; count -= 32, source += 16, pixels += 128) {
            const Bytes16 bytes = Load16(source);
            const auto left = __m128i(bytes >> 4);
            const auto right = __m128i(bytes & 15);
            if (PutNumbers<Order, Use>(_mm_unpacklo_epi8(left, right), pixels)) return true;
            if (PutNumbers<Order, Use>(_mm_unpackhi_epi8(left, right), pixels + 64)) return true;
        }
    }
    return FromTable<Word, kPixelsOf4Bits<Order>, Use>(source, pixels, count);
}

#undef KORVANDI_SHUFFLES

bool HasShuffles() {
    static const bool has = __builtin_cpu_supports("ssse3") != 0;
    return has;
}
#endif

template <typename From, PixelOrder Order, typename Use>
PixelLoop Fastest() {
#if defined(__x86_64__)
    if (HasShuffles()) return Shuffled<From, Order, Use>;
#endif
    return Plain<From, Order, Use>;
}

template <PixelOrder Order, typename Use>
PixelLoop Fastest4Bits() {
#if defined(__x86_64__)
    if (HasShuffles()) return Shuffled4Bits<Order, Use>;
#endif
    return FromTable<Word, kPixelsOf4Bits<Order>, Use>;
}

template <PixelOrder Order, typename Use>
PixelLoop LoopFor(std::int64_t bitDepth) {
    switch (bitDepth) {
        case 1:
            return FromTable<Bytes16, kPixelsOf1Bit<Order>, Use>;
        case 4:
            return Fastest4Bits<Order, Use>();
        case 8:
            return Fastest<Layout8, Order, Use>();
        case 16:
            return Fastest<Layout16, Order, Use>();
        case 24:
            return Fastest<Layout24, Order, Use>();
        case 32:
            return Fastest<Layout32, Order, Use>();
        default:
            return nullptr;
    }
}

template <PixelOrder Order>
PixelConverter Converter(std::int64_t bitDepth) {
    return {LoopFor<Order, Write>(bitDepth), LoopFor<Order, Compare>(bitDepth)};
}

}  // namespace

PixelConverter ConverterFor(std::int64_t bitDepth, PixelOrder order) {
    for (const auto& converterFor : {WideConverterFor, HalfWideConverterFor}) {
        const PixelConverter converter = converterFor(bitDepth, order);
        if (converter.Convert != nullptr) return converter;
    }
    return NarrowConverterFor(bitDepth, order);
}

PixelConverter NarrowConverterFor(std::int64_t bitDepth, PixelOrder order) {
    return order == AlphaRedGreenBlue ? Converter<AlphaRedGreenBlue>(bitDepth)
                                      : Converter<BlueGreenRedAlpha>(bitDepth);
}

}  // namespace toolkit
