#include "toolkit/graphics/pixel_rows.h"

#if defined(__x86_64__)
#include <tmmintrin.h>
#endif

#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#include <utility>

#include "toolkit/core/shared_bytes.h"
#include "toolkit/graphics/pixel_tables.h"
#include "toolkit/graphics/wide_pixels.h"

// Every depth has one plain loop, right on every machine. From 4 bits on there is also one that
// takes 16 source bytes or pixels at a time by byte shuffles, which x86 has from SSSE3 on; loops by
// larger vectors stand in half_wide_pixels.cpp and wide_pixels.cpp.

namespace toolkit {

namespace {

using platform::PixelOrder;

// A pixel as the four bytes that lie in memory.
using Pixel = std::array<std::uint8_t, 4>;

template <PixelOrder Order>
constexpr Pixel PaletteEntry(std::size_t n) {
    Pixel pixel{};
    for (std::size_t i = 0; i < 4; ++i) pixel[i] = PaletteByte(n, ComponentAt<Order>(i));
    return pixel;
}

// The finished pixels of every value of one source byte.
template <int BitDepth, PixelOrder Order>
consteval auto TableOf() {
    constexpr std::size_t kPixels = 8 / BitDepth;
    constexpr std::size_t kColors = std::size_t{1} << BitDepth;
    std::array<std::array<Pixel, kPixels>, 256> table{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        for (std::size_t x = 0; x < kPixels; ++x) {
            const std::size_t number = byte >> (8 - BitDepth - x * BitDepth) & (kColors - 1);
            table.at(byte).at(x) = PaletteEntry<Order>(BitDepth == 1 ? 15 * number : number);
        }
    }
    return table;
}

template <int BitDepth, PixelOrder Order>
constexpr auto kPixelsOf = TableOf<BitDepth, Order>();

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

// A loop does one of two things with the pixels that it has finished, and Put returns whether it may
// end early. Write puts them in their place.
struct Write {
    template <typename Unit, std::size_t N>
    static bool Put(const Unit (&fresh)[N], std::uint8_t* place) {
        std::memcpy(place, fresh, sizeof fresh);
        return false;
    }
};

// Compare looks whether one of them is not there yet.
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

template <int BitDepth, PixelOrder Order, typename Use>
bool Plain(const std::uint8_t* source, std::uint8_t* pixels, std::int64_t count) {
    for (; count > 0; --count, source += BitDepth / 8, pixels += 4) {
        Pixel pixel;
        for (std::size_t i = 0; i < 4; ++i) {
            const bool alpha = ComponentAt<Order>(i) == Component::Alpha;
            pixel[i] = alpha ? 255 : LoadByte(source + SourceByte<BitDepth, Order>(i));
        }
        const std::uint32_t word[] = {std::bit_cast<std::uint32_t>(pixel)};
        if (Use::Put(word, pixels)) return true;
    }
    return false;
}

#if defined(__x86_64__)
#define KORVANDI_SHUFFLES __attribute__((target("ssse3")))

constexpr std::size_t kVector = 16;
constexpr std::size_t kOpaqueByte = kVector;  // in a shuffle: the first byte of the second operand

// Where byte `i` of four finished pixels comes from when the source pixels begin at byte `start`.
template <int BitDepth, PixelOrder Order>
consteval int SourceOf(std::size_t i, std::size_t start) {
    const bool alpha = ComponentAt<Order>(i % 4) == Component::Alpha;
    return static_cast<int>(alpha ? kOpaqueByte : start + SourceByte<BitDepth, Order>(i));
}

// Pixels 4 * Quarter and on of the sixteen in `vectors`.
template <int BitDepth, PixelOrder Order, std::size_t Quarter, std::size_t... I>
KORVANDI_SHUFFLES inline Bytes16 FourPixels(const Bytes16* vectors, std::index_sequence<I...>) {
    constexpr std::size_t kBytes = 4 * BitDepth / 8;
    constexpr std::size_t kFirst = Quarter * kBytes / kVector;
    constexpr std::size_t kShift = Quarter * kBytes % kVector;
    const Bytes16 opaque = Bytes16{} + 255;
    if constexpr (kShift + kBytes <= kVector) {
        return __builtin_shufflevector(vectors[kFirst], opaque,
                                       SourceOf<BitDepth, Order>(I, kShift)...);
    } else {
        const Bytes16 window = __builtin_shufflevector(vectors[kFirst], vectors[kFirst + 1],
                                                       static_cast<int>(kShift + I)...);
        return __builtin_shufflevector(window, opaque, SourceOf<BitDepth, Order>(I, 0)...);
    }
}

template <int BitDepth, PixelOrder Order, typename Use>
KORVANDI_SHUFFLES bool Shuffled(const std::uint8_t* source, std::uint8_t* pixels,
                                std::int64_t count) {
    constexpr std::ptrdiff_t kBytes = BitDepth / 8;
    if (reinterpret_cast<std::uintptr_t>(source) % kVector != 0) {
        return Plain<BitDepth, Order, Use>(source, pixels, count);
    }
    constexpr auto kAll = std::make_index_sequence<kVector>();
    for (; count >= 16; count -= 16, source += 16 * kBytes, pixels += 64) {
        Bytes16 vectors[kBytes];
        for (std::ptrdiff_t i = 0; i < kBytes; ++i) vectors[i] = Load16(source + 16 * i);
        const Bytes16 finished[] = {FourPixels<BitDepth, Order, 0>(vectors, kAll),
                                    FourPixels<BitDepth, Order, 1>(vectors, kAll),
                                    FourPixels<BitDepth, Order, 2>(vectors, kAll),
                                    FourPixels<BitDepth, Order, 3>(vectors, kAll)};
        if (Use::Put(finished, pixels)) return true;
    }
    return Plain<BitDepth, Order, Use>(source, pixels, count);
}

template <PixelOrder Order, std::size_t Place>
KORVANDI_SHUFFLES inline __m128i LookUp(__m128i numbers) {
    if constexpr (ComponentAt<Order>(Place) == Component::Alpha) return _mm_set1_epi8(-1);
    const auto& bytes = kPlaceOfPalette<kVector, Order, Place>;
    return _mm_shuffle_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes.data())),
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
    return FromTable<Word, kPixelsOf<4, Order>, Use>(source, pixels, count);
}

#undef KORVANDI_SHUFFLES

bool HasShuffles() {
    static const bool has = __builtin_cpu_supports("ssse3") != 0;
    return has;
}
#endif

template <int BitDepth, PixelOrder Order, typename Use>
PixelLoop PlainLoop() {
    if constexpr (BitDepth == 1) return FromTable<Bytes16, kPixelsOf<1, Order>, Use>;
    if constexpr (BitDepth == 4) return FromTable<Word, kPixelsOf<4, Order>, Use>;
    if constexpr (BitDepth >= 8) return Plain<BitDepth, Order, Use>;
}

template <int BitDepth, PixelOrder Order, typename Use>
PixelLoop FastestLoop() {
#if defined(__x86_64__)
    if constexpr (BitDepth == 4) {
        if (HasShuffles()) return Shuffled4Bits<Order, Use>;
    } else if constexpr (BitDepth >= 8) {
        if (HasShuffles()) return Shuffled<BitDepth, Order, Use>;
    }
#endif
    return PlainLoop<BitDepth, Order, Use>();
}

struct Maker {
    template <int BitDepth, PixelOrder Order>
    static PixelConverter Make() {
        return {FastestLoop<BitDepth, Order, Write>(), FastestLoop<BitDepth, Order, Compare>()};
    }
};

}  // namespace

PixelConverter ConverterFor(std::int64_t bitDepth, PixelOrder order) {
    for (const auto& converterFor : {WideConverterFor, HalfWideConverterFor}) {
        const PixelConverter converter = converterFor(bitDepth, order);
        if (converter.Convert != nullptr) return converter;
    }
    return NarrowConverterFor(bitDepth, order);
}

PixelConverter NarrowConverterFor(std::int64_t bitDepth, PixelOrder order) {
    return ConverterBy<Maker>(bitDepth, order);
}

}  // namespace toolkit
