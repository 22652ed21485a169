#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>

#include "toolkit/core/shared_bytes.h"

// The machine's memory: one flat byte array that every drawing operation writes and every frame
// reads, on different threads and without a lock. All access goes through the functions below,
// which move bytes as shared_bytes.h says: a reader may see a run half written (a torn picture),
// never anything worse.
//
//   0x0000000      0x0010000                 t_HighMemory        0xFFFFFF     0x100000E
//   | reserved     | free                               | handed out       | spare bytes |

// Every write through these functions marks the piece of memory that it changes, and a frame looks
// only at pieces that were marked since the one before. A program that writes to the bytes itself
// gets them from DataForWriting.

/// The bytes at the addresses 0 to size() - 1. Empty until t_InitMemory, then kept for ever.
class t_MemoryArray {
  public:
    [[nodiscard]] const std::uint8_t* data() const {
        return bytes_.load(std::memory_order_acquire);
    }
    [[nodiscard]] std::int64_t size() const { return size_.load(std::memory_order_acquire); }

    /// The same bytes for a program that writes to them itself, through relaxed atomics. It leaves
    /// no marks: from the first call on every frame looks at all of its bytes. Any thread.
    [[nodiscard]] std::uint8_t* DataForWriting() {
        unmarked_.store(true, std::memory_order_release);
        return bytes_.load(std::memory_order_acquire);
    }
    /// Whether that was called.
    [[nodiscard]] bool IsWrittenUnmarked() const {
        return unmarked_.load(std::memory_order_acquire);
    }

    /// Makes toolkit::kMemorySize bytes, all 255, or makes those that are there so again, and all
    /// writes leave marks again. While no other thread uses the memory.
    void Create();

    /// Begins with that on a thread of its own, so that Create finds most of it done: to touch so
    /// many new pages takes milliseconds, which a start spends waiting for the window system.
    /// Main thread, before Create; nothing when it was done before.
    void MakeAhead();

  private:
    std::atomic<std::uint8_t*> bytes_ = nullptr;
    std::atomic<std::int64_t> size_ = 0;
    std::atomic<bool> unmarked_ = false;
};

extern constinit t_MemoryArray t_Memory;

/// Copies `count` bytes from address `source` to address `destination`; the two may overlap.
/// Nothing for a count below 1. A range that leaves the memory moves nothing and prints
///   "t_MoveMemory: Address out of range."
void t_MoveMemory(std::int64_t source, std::int64_t destination, std::int64_t count);

namespace toolkit {

inline constexpr std::int64_t kMemorySize = 0x100'000F;
inline constexpr std::int64_t kHighestAddress = 0xFF'FFFF;  // that is ever handed out
inline constexpr std::int64_t kReservedBytes = 0x1'0000;    // at the lowest addresses

/// Whether the addresses from `address` on, `count` of them, all lie in the memory.
[[nodiscard]] inline bool InMemory(std::int64_t address, std::int64_t count) {
    return address >= 0 && count >= 0 && address <= t_Memory.size() - count;
}

/// The byte at `address`; 0 outside the memory.
[[nodiscard]] inline std::uint8_t Peek(std::int64_t address) {
    if (!InMemory(address, 1)) return 0;
    return LoadByte(t_Memory.data() + address);
}

/// One mark for every piece of so many bytes: 1 when it was written to since the mark was taken,
/// which memory_changes.h does. Set after the bytes are there, by whoever writes.
inline constexpr std::int64_t kMarkedPiece = 4096;
inline constexpr std::int64_t kWriteMarks = kMemorySize / kMarkedPiece + 1;
extern constinit std::array<std::uint8_t, kWriteMarks> writeMarks;

/// Marks the addresses from `address` on, `count` of them, all in the memory.
void MarkWritten(std::int64_t address, std::int64_t count);

/// Where toolkit code writes that calls MarkWritten afterwards.
[[nodiscard]] inline std::uint8_t* WritableAt(std::int64_t address) {
    return const_cast<std::uint8_t*>(t_Memory.data()) + address;
}

/// Writes one byte; nothing outside the memory.
inline void Poke(std::int64_t address, std::uint8_t byte) {
    if (!InMemory(address, 1)) return;
    StoreByte(WritableAt(address), byte);
    SetMark(&writeMarks[static_cast<std::size_t>(address / kMarkedPiece)]);
}

// Runs. A run that leaves the memory is left alone as a whole; the result tells.

/// Copies the bytes from `address` on into `run`.
bool ReadRun(std::int64_t address, std::span<std::uint8_t> run);

/// Copies `run` to `address` and on.
bool WriteRun(std::int64_t address, std::span<const std::uint8_t> run);

/// Writes `count` bytes of `value`.
bool FillRun(std::int64_t address, std::int64_t count, std::uint8_t value);

/// As t_MoveMemory, without a line.
bool MoveRun(std::int64_t source, std::int64_t destination, std::int64_t count);

/// A block of rows in a picture: `Rows` rows of `Bytes` bytes each, the first one at `Address`,
/// each further one `Stride` bytes after the one before.
struct RowBlock {
    std::int64_t Address;
    std::int64_t Stride;
    std::int64_t Bytes;
    std::int64_t Rows;
};

/// Whether all of the block lies at the addresses first to last.
[[nodiscard]] inline bool LiesWithin(const RowBlock& block, std::int64_t first, std::int64_t last) {
    const std::int64_t end = block.Address + (block.Rows - 1) * block.Stride + block.Bytes;
    return block.Address >= first && end - 1 <= last &&
           InMemory(block.Address, end - block.Address);
}

/// Whether all of the block lies in the memory.
[[nodiscard]] inline bool InMemory(const RowBlock& block) {
    return LiesWithin(block, 0, t_Memory.size() - 1);
}

/// Marks all addresses from the block's first to its last.
void MarkWritten(const RowBlock& block);

/// What the source of a block holds: all of its rows without gaps, or the one that all of them are.
enum class RowSource : std::uint8_t { AllRows, OneRow };

/// Whether the block holds already what WriteRows would write from all rows of `source`. False also
/// where finding that out costs more than writing.
[[nodiscard]] bool HoldsRows(const RowBlock& block, const std::uint8_t* source);

/// Writes the block from `source`.
bool WriteRows(const RowBlock& block, const std::uint8_t* source,
               RowSource holds = RowSource::AllRows);

/// The same, but every `period`-th byte of a row, from its first one on, keeps what it holds.
/// `period` is 2 or 4 and divides Bytes; `source` holds 0 in the places that keep.
bool MergeRows(const RowBlock& block, const std::uint8_t* source, std::int64_t period,
               RowSource holds = RowSource::AllRows);

}  // namespace toolkit
