#include "toolkit/graphics/wide_pixels.h"

#include "toolkit/core/shared_bytes.h"

#if defined(__x86_64__) && !defined(KORVANDI_WORDS_ONLY)

#if !defined(__clang__)
// GCC 12 takes the placeholders in its own header for values (its bug 105593).
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <immintrin.h>

#include <cstddef>
#include <cstdint>

#include "toolkit/graphics/pixel_tables.h"

// Sixteen finished pixels are one vector. At 4 bits and more each of its bytes is a byte of the
// source or of the palette, which is one vector too, found by one or two shuffles; at 1 bit the
// source's bits choose between two colours.

namespace toolkit {

namespace {

using platform::PixelOrder;

#define KORVANDI_WIDE __attribute__((target("avx512f,avx512bw,avx512dq,avx512vbmi")))

constexpr std::int64_t kPixels = 16;  // of a vector
constexpr std::size_t kVector = 64;

using Bytes64 = VectorBytes<kVector>;

template <PixelOrder Order>
constexpr Bytes64 kPalette = MadeVector<kVector>([](std::size_t i) {
    return PaletteByte(i / 4, ComponentAt<Order>(i % 4));
});

template <int BitDepth, PixelOrder Order>
constexpr Bytes64 kSource = MadeVector<kVector>(SourceByte<BitDepth, Order>);

// At 4 bits: eight source bytes, two pixels each, are one number of 64 bits. For each byte of the
// sixteen pixels eight bits are taken out of it, from bit kNumberAt on, round the end: two bits too
// low, so that the four bits of the colour number come to stand in the bits of kNumber, where they
// count four bytes each. With kPlace they are an index into the palette.
constexpr Bytes64 kNumberAt = MadeVector<kVector>([](std::size_t i) {
    const std::size_t pixel = i / 4;
    const std::size_t firstBit = pixel / 2 * 8 + (pixel % 2 == 0 ? 4 : 0);
    return (firstBit + 64 - 2) % 64;
});
constexpr Bytes64 kNumber = MadeVector<kVector>([](std::size_t /*i*/) { return 15 << 2; });
constexpr Bytes64 kPlace = MadeVector<kVector>([](std::size_t i) { return i % 4; });

// At 1 bit: the pixel's bit in two source bytes.
constexpr Bytes64 kBitOfPixel = MadeVector<kVector>([](std::size_t i) {
    const std::size_t pixel = i / 4;
    return i % 4 == pixel / 8 ? 0x80U >> pixel % 8 : 0U;
});

KORVANDI_WIDE inline __m512i Vector(const Bytes64& bytes) {
    return _mm512_loadu_si512(bytes.data());
}

// The bytes of sixteen source pixels, at the front or again and again. Other threads may be writing
// them: the instructions are written out, so that each byte is read once.
template <int BitDepth>
KORVANDI_WIDE inline __m512i Load(const std::uint8_t* from) {
    __m512i bytes;
    if constexpr (BitDepth == 1) {
        asm volatile("vpbroadcastw %1, %0" : "=v"(bytes) : "m"(MemoryAt<2>(from)));
    } else if constexpr (BitDepth == 4) {
        asm volatile("vpbroadcastq %1, %0" : "=v"(bytes) : "m"(MemoryAt<8>(from)));
    } else if constexpr (BitDepth == 8) {
        asm volatile("vbroadcasti32x4 %1, %0" : "=v"(bytes) : "m"(MemoryAt<16>(from)));
    } else if constexpr (BitDepth == 16) {
        asm volatile("vbroadcasti64x4 %1, %0" : "=v"(bytes) : "m"(MemoryAt<32>(from)));
    } else if constexpr (BitDepth == 24) {
        asm volatile("vbroadcasti64x4 %1, %0" : "=v"(bytes) : "m"(MemoryAt<32>(from)));
        asm volatile("vinserti32x4 $2, %1, %0, %0" : "+v"(bytes) : "m"(MemoryAt<16>(from + 32)));
    } else {
        asm volatile("vmovdqu64 %1, %0" : "=v"(bytes) : "m"(MemoryAt<64>(from)));
    }
    return bytes;
}

template <int BitDepth, PixelOrder Order>
KORVANDI_WIDE inline __m512i Finish(__m512i source) {
    if constexpr (BitDepth == 1) {
        const __m512i palette = Vector(kPalette<Order>);
        const __m512i black = _mm512_broadcastd_epi32(_mm512_castsi512_si128(palette));
        const __m512i white = _mm512_permutexvar_epi32(_mm512_set1_epi32(15), palette);
        return _mm512_mask_blend_epi32(_mm512_test_epi32_mask(source, Vector(kBitOfPixel)), black,
                                       white);
    } else if constexpr (BitDepth == 4) {
        const __m512i shifted = _mm512_multishift_epi64_epi8(Vector(kNumberAt), source);
        const __m512i index =
            _mm512_or_si512(_mm512_and_si512(shifted, Vector(kNumber)), Vector(kPlace));
        return _mm512_permutexvar_epi8(index, Vector(kPalette<Order>));
    } else {
        return _mm512_or_si512(_mm512_permutexvar_epi8(Vector(kSource<BitDepth, Order>), source),
                               Vector(kOpaque<kVector, Order>));
    }
}

struct Write {
    KORVANDI_WIDE static bool Put(__m512i fresh, std::uint8_t* place) {
        _mm512_storeu_si512(place, fresh);
        return false;
    }
};

struct Compare {
    KORVANDI_WIDE static bool Put(__m512i fresh, const std::uint8_t* place) {
        return _mm512_cmpneq_epi64_mask(fresh, _mm512_loadu_si512(place)) != 0;
    }
};

template <int BitDepth, PixelOrder Order, typename Use, PixelLoop PixelConverter::*Rest>
KORVANDI_WIDE bool Wide(const std::uint8_t* source, std::uint8_t* pixels, std::int64_t count) {
    for (; count >= kPixels; count -= kPixels, source += kPixels * BitDepth / 8) {
        if (Use::Put(Finish<BitDepth, Order>(Load<BitDepth>(source)), pixels)) return true;
        pixels += kVector;
    }
    if (count == 0) return false;
    return (NarrowConverterFor(BitDepth, Order).*Rest)(source, pixels, count);
}

struct Maker {
    template <int BitDepth, PixelOrder Order>
    static PixelConverter Make() {
        return {Wide<BitDepth, Order, Write, &PixelConverter::Convert>,
                Wide<BitDepth, Order, Compare, &PixelConverter::Differs>};
    }
};

bool HasWideShuffles() {
    static const bool has = __builtin_cpu_supports("avx512bw") != 0 &&
                            __builtin_cpu_supports("avx512dq") != 0 &&
                            __builtin_cpu_supports("avx512vbmi") != 0;
    return has;
}

}  // namespace

PixelConverter WideConverterFor(std::int64_t bitDepth, PixelOrder order) {
    return HasWideShuffles() ? ConverterBy<Maker>(bitDepth, order) : PixelConverter();
}

}  // namespace toolkit

#else

toolkit::PixelConverter toolkit::WideConverterFor(std::int64_t /*bitDepth*/,
                                                  platform::PixelOrder /*order*/) {
    return {};
}

#endif
