#pragma once

#if defined(__x86_64__)
#include <cpuid.h>
#endif

#include <cstdint>
#include <cstring>

// How bytes that several threads use at once are read and written: through relaxed atomics of one
// byte or one aligned 8-byte word, so that a reader may see a run half written, never anything
// worse. They are the compilers' builtins: these take a word where bytes were made, which
// std::atomic_ref does not, and are there with every standard library.
//
// On x86-64 runs also move 16 bytes at a time. C++ has no atomic of that size that would be as fast
// as the memory; the processor has: an aligned 16-byte move is done as one, or as two 8-byte moves
// that are one each. The instruction is written out, so that the compiler neither splits nor
// doubles it. Long runs move fastest of all by the processor's string instruction, which writes
// whole lines of the cache without reading them first. Builds that look for data races use words
// throughout.

#if defined(__SANITIZE_THREAD__)
#define KORVANDI_WORDS_ONLY
#elif defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define KORVANDI_WORDS_ONLY
#endif
#endif

namespace toolkit {

using Word = std::uint64_t;
inline constexpr std::int64_t kWord = sizeof(Word);

using Bytes16 [[gnu::vector_size(16)]] = std::uint8_t;

inline std::uint8_t LoadByte(const std::uint8_t* at) {
    return __atomic_load_n(at, __ATOMIC_RELAXED);
}

inline void StoreByte(std::uint8_t* at, std::uint8_t byte) {
    __atomic_store_n(at, byte, __ATOMIC_RELAXED);
}

/// A mark is a byte: 1 when set. Whoever takes one finds what was written before it was set.
inline void SetMark(std::uint8_t* at) {
    __atomic_store_n(at, std::uint8_t{1}, __ATOMIC_RELEASE);
}

/// Sets a mark back; whether it was set.
inline bool TakeMark(std::uint8_t* at) {
    return LoadByte(at) != 0 && __atomic_exchange_n(at, std::uint8_t{0}, __ATOMIC_ACQ_REL) != 0;
}

/// `at` is a multiple of 8.
inline Word LoadWord(const std::uint8_t* at) {
    return __atomic_load_n(reinterpret_cast<const Word*>(at), __ATOMIC_RELAXED);
}

inline void StoreWord(std::uint8_t* at, Word value) {
    __atomic_store_n(reinterpret_cast<Word*>(at), value, __ATOMIC_RELAXED);
}

/// Text goes on to the right: has the cache fetch what a row of the next cell will be written to,
/// when the row of this one, at `row`, is `bytes` long. Each row lies on another page of memory,
/// too many for the processor to foresee. An address beyond the memory does no harm.
inline void FetchNextCell(const std::uint8_t* row, std::int64_t bytes) {
    __builtin_prefetch(row + 2 * bytes - 1, 1);
}

#if defined(__x86_64__) && !defined(KORVANDI_WORDS_ONLY)

/// `at` is a multiple of 16.
inline Bytes16 Load16(const std::uint8_t* at) {
    Bytes16 bytes;
    asm volatile("movdqa %1, %0"
                 : "=x"(bytes)
                 : "m"(*reinterpret_cast<const std::uint8_t(*)[16]>(at)));
    return bytes;
}

inline void Store16(std::uint8_t* at, Bytes16 bytes) {
    asm volatile("movdqa %0, (%1)" : : "x"(bytes), "r"(at) : "memory");
}

/// Sets `count` bytes at any place to 1. Whoever finds one set finds what was written before too.
inline void SetMarks(std::uint8_t* at, std::int64_t count) {
    constexpr std::int64_t kVector = 16;
    const auto setSixteen = [](std::uint8_t* first) {
        asm volatile("movdqu %0, (%1)" : : "x"(Bytes16{} + 1), "r"(first) : "memory");
    };
    if (count >= kVector) {
        for (std::int64_t i = 0; i < count - kVector; i += kVector) setSixteen(at + i);
        return setSixteen(at + count - kVector);
    }
    for (; count > 0; --count) SetMark(at++);
}

/// Whether MoveString is fast here.
inline bool HasFastStrings() {
    static const bool has = [] {
        unsigned a = 0;
        unsigned b = 0;
        unsigned c = 0;
        unsigned d = 0;
        return __get_cpuid_count(7, 0, &a, &b, &c, &d) != 0 && (b >> 9U & 1U) != 0;
    }();
    return has;
}

/// Moves `count` bytes, the lowest address first: ranges may overlap when `to` is below `from`.
inline void MoveString(const std::uint8_t* from, std::uint8_t* to, std::int64_t count) {
    asm volatile("rep movsb" : "+D"(to), "+S"(from), "+c"(count) : : "memory");
}

#else

inline Bytes16 Load16(const std::uint8_t* at) {
    const Word words[2] = {LoadWord(at), LoadWord(at + kWord)};
    Bytes16 bytes;
    std::memcpy(&bytes, words, sizeof bytes);
    return bytes;
}

inline void Store16(std::uint8_t* at, Bytes16 bytes) {
    Word words[2];
    std::memcpy(words, &bytes, sizeof bytes);
    StoreWord(at, words[0]);
    StoreWord(at + kWord, words[1]);
}

inline void SetMarks(std::uint8_t* at, std::int64_t count) {
    for (; count > 0; --count) SetMark(at++);
}

inline bool HasFastStrings() {
    return false;
}

inline void MoveString(const std::uint8_t* /*from*/, std::uint8_t* /*to*/, std::int64_t /*count*/) {
}

#endif

}  // namespace toolkit
