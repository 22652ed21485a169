#include "toolkit/core/shared_bytes.h"
#include "toolkit/graphics/wide_pixels.h"

#if defined(__x86_64__) && !defined(KORVANDI_WORDS_ONLY)

#include <immintrin.h>

#include <cstddef>
#include <cstdint>

#include "toolkit/graphics/pixel_tables.h"

// Eight finished pixels are one vector, whose two halves are shuffled each by itself. At 8 bits and
// more a half takes its bytes from the source. At 4 bits the palette is shuffled by the source's
// numbers, one component after the other; at 1 bit the source's bits choose between two colours:
// both for 32 pixels at once.

namespace toolkit {

namespace {

using platform::PixelOrder;

#define KORVANDI_HALF_WIDE __attribute__((target("avx2")))

constexpr std::size_t kVector = 32;
constexpr std::size_t kHalf = 16;

using Bytes32 = VectorBytes<kVector>;

template <int BitDepth>
constexpr std::int64_t kPixels = BitDepth <= 4 ? 32 : 8;  // at once

// Of eight pixels of three bytes the high half holds the bytes from 8 on; the fifth pixel, the
// first that it makes, begins at byte 12.
constexpr std::ptrdiff_t kHighHalf24 = 8;
constexpr std::size_t kFifthPixel24 = 12 - kHighHalf24;

// From which byte of its half a byte is taken, at 8 bits and more.
template <int BitDepth, PixelOrder Order>
constexpr Bytes32 kSource = MadeVector<kVector>([](std::size_t i) {
    if constexpr (BitDepth <= 16) return SourceByte<BitDepth, Order>(i);
    const std::size_t start = BitDepth == 24 && i >= kHalf ? kFifthPixel24 : 0;
    return start + SourceByte<BitDepth, Order>(i % kHalf);
});

// At 4 bits: the source byte of a pixel. The halves hold pixels 0 to 3, 8 to 11 and so on, and 4 to
// 7, 12 to 15 and so on: joining their bytes then gives eight pixels that follow each other.
constexpr Bytes32 kByteOfNumber = MadeVector<kVector>([](std::size_t i) {
    const std::size_t group = i % kHalf / 4;
    const std::size_t pixel = 8 * group + (i >= kHalf ? 4 : 0) + i % 4;
    return pixel / 2;
});
constexpr Bytes32 kLeftNumbers =
    MadeVector<kVector>([](std::size_t i) { return i % 2 == 0 ? 15 : 0; });
constexpr Bytes32 kRightNumbers =
    MadeVector<kVector>([](std::size_t i) { return i % 2 == 0 ? 0 : 15; });

// At 1 bit: the pixel's bit in four source bytes, of which `Byte` is the one for this vector, and
// the two colours.
template <std::size_t Byte>
constexpr Bytes32 kBitOfPixel = MadeVector<kVector>([](std::size_t i) {
    return i % 4 == Byte ? 0x80U >> i / 4 : 0U;
});
template <PixelOrder Order, std::size_t Color>
constexpr Bytes32 kColor = MadeVector<kVector>([](std::size_t i) {
    return PaletteByte(Color, ComponentAt<Order>(i % 4));
});

KORVANDI_HALF_WIDE inline __m256i Vector(const Bytes32& bytes) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(bytes.data()));
}

// The bytes of the source pixels, in both halves as far as both need them. Other threads may be
// writing them: the instructions are written out, so that a pixel's bytes are read once.
template <int BitDepth>
KORVANDI_HALF_WIDE inline __m256i Load(const std::uint8_t* from) {
    __m256i bytes;
    if constexpr (BitDepth == 1) {
        asm volatile("vpbroadcastd %1, %0" : "=x"(bytes) : "m"(MemoryAt<4>(from)));
    } else if constexpr (BitDepth == 8) {
        asm volatile("vpbroadcastq %1, %0" : "=x"(bytes) : "m"(MemoryAt<8>(from)));
    } else if constexpr (BitDepth == 4) {
        asm volatile("vbroadcasti128 %1, %0" : "=x"(bytes) : "m"(MemoryAt<16>(from)));
    } else if constexpr (BitDepth == 32) {
        asm volatile("vmovdqu %1, %0" : "=x"(bytes) : "m"(MemoryAt<32>(from)));
    } else {
        asm volatile("vbroadcasti128 %1, %0" : "=x"(bytes) : "m"(MemoryAt<16>(from)));
        if constexpr (BitDepth == 24) {
            asm volatile("vinserti128 $1, %1, %0, %0"
                         : "+x"(bytes)
                         : "m"(MemoryAt<16>(from + kHighHalf24)));
        }
    }
    return bytes;
}

struct Write {
    KORVANDI_HALF_WIDE static bool Put(__m256i fresh, std::uint8_t* place) {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(place), fresh);
        return false;
    }
};

struct Compare {
    KORVANDI_HALF_WIDE static bool Put(__m256i fresh, const std::uint8_t* place) {
        const __m256i old = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(place));
        const __m256i differences = _mm256_xor_si256(fresh, old);
        return _mm256_testz_si256(differences, differences) == 0;
    }
};

template <PixelOrder Order, typename Use, std::size_t Byte>
KORVANDI_HALF_WIDE inline bool Put1Bit(__m256i source, std::uint8_t* pixels) {
    const __m256i bit = Vector(kBitOfPixel<Byte>);
    const __m256i isSet = _mm256_cmpeq_epi32(_mm256_and_si256(source, bit), bit);
    return Use::Put(_mm256_blendv_epi8(Vector(kColor<Order, 0>), Vector(kColor<Order, 15>), isSet),
                    pixels + kVector * Byte);
}

template <PixelOrder Order, std::size_t Place>
KORVANDI_HALF_WIDE inline __m256i LookUp(__m256i numbers) {
    return _mm256_shuffle_epi8(Vector(kPlaceOfPalette<kVector, Order, Place>), numbers);
}

template <PixelOrder Order, typename Use>
KORVANDI_HALF_WIDE inline bool Put4Bits(__m256i source, std::uint8_t* pixels) {
    const __m256i bytes = _mm256_shuffle_epi8(source, Vector(kByteOfNumber));
    const __m256i left = _mm256_and_si256(_mm256_srli_epi16(bytes, 4), Vector(kLeftNumbers));
    const __m256i right = _mm256_and_si256(bytes, Vector(kRightNumbers));
    const __m256i numbers = _mm256_or_si256(left, right);
    const __m256i first = LookUp<Order, 0>(numbers);
    const __m256i second = LookUp<Order, 1>(numbers);
    const __m256i third = LookUp<Order, 2>(numbers);
    const __m256i fourth = LookUp<Order, 3>(numbers);
    const __m256i lowFront = _mm256_unpacklo_epi8(first, second);
    const __m256i lowBack = _mm256_unpacklo_epi8(third, fourth);
    const __m256i highFront = _mm256_unpackhi_epi8(first, second);
    const __m256i highBack = _mm256_unpackhi_epi8(third, fourth);
    return Use::Put(_mm256_unpacklo_epi16(lowFront, lowBack), pixels) ||
           Use::Put(_mm256_unpackhi_epi16(lowFront, lowBack), pixels + kVector) ||
           Use::Put(_mm256_unpacklo_epi16(highFront, highBack), pixels + 2 * kVector) ||
           Use::Put(_mm256_unpackhi_epi16(highFront, highBack), pixels + 3 * kVector);
}

template <int BitDepth, PixelOrder Order, typename Use>
KORVANDI_HALF_WIDE inline bool PutPixels(const std::uint8_t* from, std::uint8_t* pixels) {
    const __m256i source = Load<BitDepth>(from);
    if constexpr (BitDepth == 1) {
        return Put1Bit<Order, Use, 0>(source, pixels) || Put1Bit<Order, Use, 1>(source, pixels) ||
               Put1Bit<Order, Use, 2>(source, pixels) || Put1Bit<Order, Use, 3>(source, pixels);
    } else if constexpr (BitDepth == 4) {
        return Put4Bits<Order, Use>(source, pixels);
    } else {
        const __m256i bytes = _mm256_shuffle_epi8(source, Vector(kSource<BitDepth, Order>));
        return Use::Put(_mm256_or_si256(bytes, Vector(kOpaque<kVector, Order>)), pixels);
    }
}

template <int BitDepth, PixelOrder Order, typename Use, PixelLoop PixelConverter::*Rest>
KORVANDI_HALF_WIDE bool HalfWide(const std::uint8_t* source, std::uint8_t* pixels,
                                 std::int64_t count) {
    constexpr std::int64_t kAtOnce = kPixels<BitDepth>;
    for (; count >= kAtOnce; count -= kAtOnce, source += kAtOnce * BitDepth / 8) {
        if (PutPixels<BitDepth, Order, Use>(source, pixels)) return true;
        pixels += 4 * kAtOnce;
    }
    if (count == 0) return false;
    return (NarrowConverterFor(BitDepth, Order).*Rest)(source, pixels, count);
}

struct Maker {
    template <int BitDepth, PixelOrder Order>
    static PixelConverter Make() {
        return {HalfWide<BitDepth, Order, Write, &PixelConverter::Convert>,
                HalfWide<BitDepth, Order, Compare, &PixelConverter::Differs>};
    }
};

bool HasHalfWideShuffles() {
    static const bool has = __builtin_cpu_supports("avx2") != 0;
    return has;
}

}  // namespace

PixelConverter HalfWideConverterFor(std::int64_t bitDepth, PixelOrder order) {
    return HasHalfWideShuffles() ? ConverterBy<Maker>(bitDepth, order) : PixelConverter();
}

}  // namespace toolkit

#else

toolkit::PixelConverter toolkit::HalfWideConverterFor(std::int64_t /*bitDepth*/,
                                                      platform::PixelOrder /*order*/) {
    return {};
}

#endif
