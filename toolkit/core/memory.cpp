#include "toolkit/core/memory.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <new>

#include "toolkit/core/output.h"

constinit t_MemoryArray t_Memory;

namespace toolkit {

namespace {

using Word = std::uint64_t;

constexpr std::int64_t kWord = sizeof(Word);
constexpr std::int64_t kChunk = 4096;  // bytes of a local buffer: small enough for the first cache

// The bytes of the array are only ever read and written through relaxed atomics of one byte or of
// one aligned word. The builtins, unlike std::atomic_ref, take a word where bytes were made.
Word LoadWord(const std::uint8_t* at) {
    return __atomic_load_n(reinterpret_cast<const Word*>(at), __ATOMIC_RELAXED);
}

void StoreWord(std::uint8_t* at, Word value) {
    __atomic_store_n(reinterpret_cast<Word*>(at), value, __ATOMIC_RELAXED);
}

std::uint8_t LoadByte(const std::uint8_t* at) {
    return __atomic_load_n(at, __ATOMIC_RELAXED);
}

void StoreByte(std::uint8_t* at, std::uint8_t byte) {
    __atomic_store_n(at, byte, __ATOMIC_RELAXED);
}

// How a run splits: bytes up to an aligned address, whole words, and the bytes left.
struct Split {
    std::int64_t Head;
    std::int64_t Words;  // in bytes
    std::int64_t Tail;
};

Split SplitAt(std::int64_t address, std::int64_t count) {
    const std::int64_t head = std::min(-address & (kWord - 1), count);
    const std::int64_t words = (count - head) & ~(kWord - 1);
    return {head, words, count - head - words};
}

void CopyOut(const std::uint8_t* from, std::uint8_t* to, const Split& split) {
    for (const std::uint8_t* const end = to + split.Head; to != end;) *to++ = LoadByte(from++);
    for (const std::uint8_t* const end = to + split.Words; to != end; to += kWord, from += kWord) {
        const Word word = LoadWord(from);
        std::memcpy(to, &word, kWord);
    }
    for (const std::uint8_t* const end = to + split.Tail; to != end;) *to++ = LoadByte(from++);
}

void CopyIn(const std::uint8_t* from, std::uint8_t* to, const Split& split) {
    for (const std::uint8_t* const end = to + split.Head; to != end;) StoreByte(to++, *from++);
    for (const std::uint8_t* const end = to + split.Words; to != end; to += kWord, from += kWord) {
        Word word = 0;
        std::memcpy(&word, from, kWord);
        StoreWord(to, word);
    }
    for (const std::uint8_t* const end = to + split.Tail; to != end;) StoreByte(to++, *from++);
}

// Both addresses have the same place in their words: whole words go straight across, four at a
// time.
void MoveUpwards(const std::uint8_t* from, std::uint8_t* to, const Split& split) {
    for (const std::uint8_t* const end = to + split.Head; to != end;) {
        StoreByte(to++, LoadByte(from++));
    }
    std::int64_t words = split.Words / kWord;
    for (; words >= 4; words -= 4, from += 4 * kWord, to += 4 * kWord) {
        const Word a = LoadWord(from);
        const Word b = LoadWord(from + kWord);
        const Word c = LoadWord(from + 2 * kWord);
        const Word d = LoadWord(from + 3 * kWord);
        StoreWord(to, a);
        StoreWord(to + kWord, b);
        StoreWord(to + 2 * kWord, c);
        StoreWord(to + 3 * kWord, d);
    }
    for (; words > 0; --words, from += kWord, to += kWord) StoreWord(to, LoadWord(from));
    for (const std::uint8_t* const end = to + split.Tail; to != end;) {
        StoreByte(to++, LoadByte(from++));
    }
}

void MoveDownwards(const std::uint8_t* from, std::uint8_t* to, const Split& split) {
    from += split.Head + split.Words + split.Tail;
    to += split.Head + split.Words + split.Tail;
    for (const std::uint8_t* const end = to - split.Tail; to != end;) {
        StoreByte(--to, LoadByte(--from));
    }
    std::int64_t words = split.Words / kWord;
    for (; words >= 4; words -= 4) {
        from -= 4 * kWord;
        to -= 4 * kWord;
        const Word a = LoadWord(from);
        const Word b = LoadWord(from + kWord);
        const Word c = LoadWord(from + 2 * kWord);
        const Word d = LoadWord(from + 3 * kWord);
        StoreWord(to + 3 * kWord, d);
        StoreWord(to + 2 * kWord, c);
        StoreWord(to + kWord, b);
        StoreWord(to, a);
    }
    for (; words > 0; --words) {
        from -= kWord;
        to -= kWord;
        StoreWord(to, LoadWord(from));
    }
    for (const std::uint8_t* const end = to - split.Head; to != end;) {
        StoreByte(--to, LoadByte(--from));
    }
}

// Addresses with different places in their words: through a buffer, chunk by chunk, in the order
// that overlapping ranges need.
void MoveInChunks(std::int64_t source, std::int64_t destination, std::int64_t count) {
    std::array<std::uint8_t, kChunk> buffer;  // written before it is read
    const bool upwards = source >= destination;
    for (std::int64_t done = 0; done < count;) {
        const std::int64_t step = std::min(kChunk, count - done);
        const std::int64_t offset = upwards ? done : count - done - step;
        const std::span<std::uint8_t> run(buffer.data(), static_cast<std::size_t>(step));
        ReadRun(source + offset, run);
        WriteRun(destination + offset, run);
        done += step;
    }
}

}  // namespace

bool ReadRun(std::int64_t address, std::span<std::uint8_t> run) {
    if (!InMemory(address, std::ssize(run))) return false;
    CopyOut(t_Memory.data() + address, run.data(), SplitAt(address, std::ssize(run)));
    return true;
}

bool WriteRun(std::int64_t address, std::span<const std::uint8_t> run) {
    if (!InMemory(address, std::ssize(run))) return false;
    CopyIn(run.data(), t_Memory.data() + address, SplitAt(address, std::ssize(run)));
    return true;
}

bool FillRun(std::int64_t address, std::int64_t count, std::uint8_t value) {
    if (!InMemory(address, count)) return false;
    const Split split = SplitAt(address, count);
    const Word word = value * 0x0101'0101'0101'0101U;
    std::uint8_t* to = t_Memory.data() + address;
    for (const std::uint8_t* const end = to + split.Head; to != end;) StoreByte(to++, value);
    for (const std::uint8_t* const end = to + split.Words; to != end; to += kWord) {
        StoreWord(to, word);
    }
    for (const std::uint8_t* const end = to + split.Tail; to != end;) StoreByte(to++, value);
    return true;
}

bool MoveRun(std::int64_t source, std::int64_t destination, std::int64_t count) {
    if (!InMemory(source, count) || !InMemory(destination, count)) return false;
    if ((source - destination) % kWord != 0) {
        MoveInChunks(source, destination, count);
    } else if (source >= destination) {
        MoveUpwards(t_Memory.data() + source, t_Memory.data() + destination,
                    SplitAt(source, count));
    } else {
        MoveDownwards(t_Memory.data() + source, t_Memory.data() + destination,
                      SplitAt(source, count));
    }
    return true;
}

}  // namespace toolkit

void t_MemoryArray::Create(std::int64_t size, std::uint8_t value) {
    constexpr std::align_val_t kPage{4096};
    if (data() == nullptr) {
        bytes_ = static_cast<std::uint8_t*>(::operator new(static_cast<std::size_t>(size), kPage));
        size_ = size;
    }
    toolkit::FillRun(0, size, value);
}

void t_MoveMemory(std::int64_t source, std::int64_t destination, std::int64_t count) {
    if (count < 1) return;
    if (!toolkit::MoveRun(source, destination, count)) {
        toolkit::PrintLine("t_MoveMemory: Address out of range.");
    }
}
