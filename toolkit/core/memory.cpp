#include "toolkit/core/memory.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <future>
#include <new>
#include <system_error>
#include <thread>
#include <utility>

#include "toolkit/core/output.h"
#include "toolkit/core/shared_bytes.h"

constinit t_MemoryArray t_Memory;
constinit std::array<std::uint8_t, toolkit::kWriteMarks> toolkit::writeMarks{};

namespace toolkit {

namespace {

constexpr std::int64_t kChunk = 4096;  // bytes of a local buffer: small enough for the first cache
constexpr std::int64_t kVector = 16;   // the most bytes that move at once
constexpr std::int64_t kLong = 512;    // a run from here on is worth the start of a string move
constexpr std::uint8_t kUntouched = 255;

// How a run splits: bytes up to an aligned address, whole vectors, and the bytes left.
struct Split {
    std::int64_t Head;
    std::int64_t Vectors;  // in bytes
    std::int64_t Tail;
};

Split SplitAt(std::int64_t address, std::int64_t count) {
    const std::int64_t head = std::min(-address & (kVector - 1), count);
    const std::int64_t vectors = (count - head) & ~(kVector - 1);
    return {head, vectors, count - head - vectors};
}

void CopyOut(const std::uint8_t* from, std::uint8_t* to, const Split& split) {
    for (const std::uint8_t* const end = to + split.Head; to != end;) *to++ = LoadByte(from++);
    for (const std::uint8_t* const end = to + split.Vectors; to != end;
         to += kVector, from += kVector) {
        const Bytes16 bytes = Load16(from);
        std::memcpy(to, &bytes, kVector);
    }
    for (const std::uint8_t* const end = to + split.Tail; to != end;) *to++ = LoadByte(from++);
}

void CopyIn(const std::uint8_t* from, std::uint8_t* to, const Split& split) {
    for (const std::uint8_t* const end = to + split.Head; to != end;) StoreByte(to++, *from++);
    for (const std::uint8_t* const end = to + split.Vectors; to != end;
         to += kVector, from += kVector) {
        Bytes16 bytes;
        std::memcpy(&bytes, from, kVector);
        Store16(to, bytes);
    }
    for (const std::uint8_t* const end = to + split.Tail; to != end;) StoreByte(to++, *from++);
}

// Four vectors from one place to another; all are read before one is written.
void MoveFour(const std::uint8_t* from, std::uint8_t* to) {
    const Bytes16 a = Load16(from);
    const Bytes16 b = Load16(from + kVector);
    const Bytes16 c = Load16(from + 2 * kVector);
    const Bytes16 d = Load16(from + 3 * kVector);
    Store16(to, a);
    Store16(to + kVector, b);
    Store16(to + 2 * kVector, c);
    Store16(to + 3 * kVector, d);
}

// Both addresses have the same place in their vectors: whole vectors go straight across.
void MoveUpwards(const std::uint8_t* from, std::uint8_t* to, const Split& split) {
    for (const std::uint8_t* const end = to + split.Head; to != end;) {
        StoreByte(to++, LoadByte(from++));
    }
    std::int64_t left = split.Vectors;
    for (; left >= 4 * kVector; left -= 4 * kVector) {
        MoveFour(from, to);
        from += 4 * kVector;
        to += 4 * kVector;
    }
    for (; left > 0; left -= kVector, from += kVector, to += kVector) Store16(to, Load16(from));
    for (const std::uint8_t* const end = to + split.Tail; to != end;) {
        StoreByte(to++, LoadByte(from++));
    }
}

// The same from the last byte down to the first.
void MoveDownwards(const std::uint8_t* from, std::uint8_t* to, const Split& split) {
    from += split.Head + split.Vectors + split.Tail;
    to += split.Head + split.Vectors + split.Tail;
    for (const std::uint8_t* const end = to - split.Tail; to != end;) {
        StoreByte(--to, LoadByte(--from));
    }
    std::int64_t left = split.Vectors;
    for (; left >= 4 * kVector; left -= 4 * kVector) {
        from -= 4 * kVector;
        to -= 4 * kVector;
        MoveFour(from, to);
    }
    for (; left > 0; left -= kVector) {
        from -= kVector;
        to -= kVector;
        Store16(to, Load16(from));
    }
    for (const std::uint8_t* const end = to - split.Head; to != end;) {
        StoreByte(--to, LoadByte(--from));
    }
}

// Addresses with different places in their vectors: through a buffer, chunk by chunk, in the order
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

// Rows are copied unit by unit. The address and the length of every row are multiples of a unit, so
// that each unit is written in one step; the larger the unit, the faster.
template <typename Unit>
struct PlainUnit {
    static constexpr std::int64_t kBytes = sizeof(Unit);
    static void Copy(const std::uint8_t* from, std::uint8_t* to) {
        Unit unit;
        std::memcpy(&unit, from, sizeof unit);
        __atomic_store_n(reinterpret_cast<Unit*>(to), unit, __ATOMIC_RELAXED);
    }
};

struct VectorUnit {
    static constexpr std::int64_t kBytes = kVector;
    static void Copy(const std::uint8_t* from, std::uint8_t* to) {
        Bytes16 bytes;
        std::memcpy(&bytes, from, kVector);
        Store16(to, bytes);
    }
};

constexpr std::int64_t kUnitsWorthFetching = 3;

// With `Units` given, all rows are so many units long.
template <typename Unit, std::int64_t Units = 0>
void CopyRows(const RowBlock& block, const std::uint8_t* source, std::int64_t step) {
    const std::int64_t bytes = Units > 0 ? Units * Unit::kBytes : block.Bytes;
    std::uint8_t* row = WritableAt(block.Address);
    for (std::int64_t r = 0; r < block.Rows; ++r, row += block.Stride, source += step) {
        if constexpr (Units >= kUnitsWorthFetching) FetchNextCell(row, bytes);
        for (std::int64_t b = 0; b < bytes; b += Unit::kBytes) Unit::Copy(source + b, row + b);
    }
}

// The usual cell is 16 pixels wide: one vector at 8 bits, three at 24. Only with three does nearly
// every cell begin lines of its own, which are worth fetching.
void CopyVectorRows(const RowBlock& block, const std::uint8_t* source, std::int64_t step) {
    switch (block.Bytes) {
        case kVector:
            return CopyRows<VectorUnit, 1>(block, source, step);
        case 2 * kVector:
            return CopyRows<VectorUnit, 2>(block, source, step);
        case 3 * kVector:
            return CopyRows<VectorUnit, 3>(block, source, step);
        default:
            return CopyRows<VectorUnit>(block, source, step);
    }
}

// Bits that differ somewhere between the block and all rows of the source. With `Vectors` given,
// all rows are so many vectors long.
template <std::int64_t Vectors>
Bytes16 DifferencesOf(const RowBlock& block, const std::uint8_t* source) {
    const std::int64_t bytes = Vectors > 0 ? Vectors * kVector : block.Bytes;
    const std::uint8_t* row = t_Memory.data() + block.Address;
    Bytes16 differences{};
    for (std::int64_t r = 0; r < block.Rows; ++r, row += block.Stride) {
        FetchNextCell(row, bytes);
        for (std::int64_t b = 0; b < bytes; b += kVector, source += kVector) {
            Bytes16 wanted;
            std::memcpy(&wanted, source, kVector);
            differences |= Load16(row + b) ^ wanted;
        }
    }
    return differences;
}

// How far the source goes on from row to row.
std::int64_t StepOf(const RowBlock& block, RowSource holds) {
    return holds == RowSource::OneRow ? 0 : block.Bytes;
}

bool FitsUnit(const RowBlock& block, std::int64_t unit) {
    return ((block.Address | block.Stride | block.Bytes) & (unit - 1)) == 0;
}

// The memory's bytes as a machine has them that was just switched on.
std::uint8_t* MakeBytes() {
    constexpr std::align_val_t kPage{4096};
    constexpr auto kBytes = static_cast<std::size_t>(kMemorySize);
    return static_cast<std::uint8_t*>(
        std::memset(::operator new(kBytes, kPage), kUntouched, kBytes));
}

// What MakeAhead began; never destroyed, because the process may end before it is done.
std::future<std::uint8_t*>& BytesAhead() {
    static auto* const ahead = new std::future<std::uint8_t*>;
    return *ahead;
}

// 255 in every period-th byte.
Bytes16 KeptBytes(std::int64_t period) {
    Bytes16 kept{};
    for (std::int64_t i = 0; i < kVector; i += period) kept[i] = 255;
    return kept;
}

}  // namespace

void MarkWritten(std::int64_t address, std::int64_t count) {
    if (count < 1) return;
    const std::int64_t first = address / kMarkedPiece;
    SetMarks(writeMarks.data() + first, (address + count - 1) / kMarkedPiece - first + 1);
}

void MarkWritten(const RowBlock& block) {
    if (block.Rows > 0) MarkWritten(block.Address, (block.Rows - 1) * block.Stride + block.Bytes);
}

bool HoldsRows(const RowBlock& block, const std::uint8_t* source) {
    if (!InMemory(block) || !FitsUnit(block, kVector)) return false;
    const Bytes16 differences = block.Bytes == 3 * kVector ? DifferencesOf<3>(block, source)
                                                           : DifferencesOf<0>(block, source);
    Word halves[2];
    std::memcpy(halves, &differences, sizeof halves);
    return (halves[0] | halves[1]) == 0;
}

bool WriteRows(const RowBlock& block, const std::uint8_t* source, RowSource holds) {
    if (!InMemory(block)) return false;
    const std::int64_t step = StepOf(block, holds);
    if (FitsUnit(block, kVector)) {
        CopyVectorRows(block, source, step);
    } else if (FitsUnit(block, 8)) {
        CopyRows<PlainUnit<std::uint64_t>>(block, source, step);
    } else if (FitsUnit(block, 4)) {
        CopyRows<PlainUnit<std::uint32_t>>(block, source, step);
    } else if (FitsUnit(block, 2)) {
        CopyRows<PlainUnit<std::uint16_t>>(block, source, step);
    } else {
        CopyRows<PlainUnit<std::uint8_t>>(block, source, step);
    }
    MarkWritten(block);
    return true;
}

bool MergeRows(const RowBlock& block, const std::uint8_t* source, std::int64_t period,
               RowSource holds) {
    if (!InMemory(block)) return false;
    const std::int64_t step = StepOf(block, holds);
    const Bytes16 kept = KeptBytes(period);
    const bool vectors = FitsUnit(block, kVector);
    std::uint8_t* row = WritableAt(block.Address);
    for (std::int64_t r = 0; r < block.Rows; ++r, row += block.Stride, source += step) {
        for (std::int64_t b = 0; vectors && b < block.Bytes; b += kVector) {
            Bytes16 bytes;
            std::memcpy(&bytes, source + b, kVector);
            Store16(row + b, (Load16(row + b) & kept) | bytes);
        }
        for (std::int64_t b = 0; !vectors && b < block.Bytes; ++b) {
            if (b % period != 0) StoreByte(row + b, source[b]);
        }
    }
    MarkWritten(block);
    return true;
}

bool ReadRun(std::int64_t address, std::span<std::uint8_t> run) {
    if (!InMemory(address, std::ssize(run))) return false;
    CopyOut(t_Memory.data() + address, run.data(), SplitAt(address, std::ssize(run)));
    return true;
}

bool WriteRun(std::int64_t address, std::span<const std::uint8_t> run) {
    if (!InMemory(address, std::ssize(run))) return false;
    CopyIn(run.data(), WritableAt(address), SplitAt(address, std::ssize(run)));
    MarkWritten(address, std::ssize(run));
    return true;
}

bool FillRun(std::int64_t address, std::int64_t count, std::uint8_t value) {
    if (!InMemory(address, count)) return false;
    const Split split = SplitAt(address, count);
    const Bytes16 values = Bytes16{} + value;
    std::uint8_t* to = WritableAt(address);
    for (const std::uint8_t* const end = to + split.Head; to != end;) StoreByte(to++, value);
    for (const std::uint8_t* const end = to + split.Vectors; to != end; to += kVector) {
        Store16(to, values);
    }
    for (const std::uint8_t* const end = to + split.Tail; to != end;) StoreByte(to++, value);
    MarkWritten(address, count);
    return true;
}

bool MoveRun(std::int64_t source, std::int64_t destination, std::int64_t count) {
    if (!InMemory(source, count) || !InMemory(destination, count)) return false;
    const std::uint8_t* const from = t_Memory.data() + source;
    std::uint8_t* const to = WritableAt(destination);
    if (source >= destination && count >= kLong && HasFastStrings()) {
        MoveString(from, to, count);
    } else if ((source - destination) % kVector != 0) {
        MoveInChunks(source, destination, count);
    } else if (source >= destination) {
        MoveUpwards(from, to, SplitAt(source, count));
    } else {
        MoveDownwards(from, to, SplitAt(source, count));
    }
    MarkWritten(destination, count);
    return true;
}

}  // namespace toolkit

void t_MemoryArray::Create() {
    unmarked_ = false;
    if (data() != nullptr) {
        toolkit::FillRun(0, size(), toolkit::kUntouched);
        return;
    }
    std::future<std::uint8_t*>& ahead = toolkit::BytesAhead();
    bytes_ = ahead.valid() ? ahead.get() : toolkit::MakeBytes();
    size_ = toolkit::kMemorySize;
}

void t_MemoryArray::MakeAhead() {
    std::future<std::uint8_t*>& ahead = toolkit::BytesAhead();
    if (data() != nullptr || ahead.valid()) return;
    std::packaged_task<std::uint8_t*()> making(toolkit::MakeBytes);
    std::future<std::uint8_t*> bytes = making.get_future();
    try {
        // On its own: nobody waits for it when the process ends before the memory is wanted.
        std::thread(std::move(making)).detach();
    } catch (const std::system_error&) {
        return;  // no thread to be had: Create does it all
    }
    ahead = std::move(bytes);
}

void t_MoveMemory(std::int64_t source, std::int64_t destination, std::int64_t count) {
    if (count < 1) return;
    if (!toolkit::MoveRun(source, destination, count)) {
        toolkit::PrintLine("t_MoveMemory: Address out of range.");
    }
}
