#pragma once

#include <cstdint>

// How the windows' blocks lie in the memory: handed out downwards from the highest address, each
// window's text block directly below its graphic block. Program thread.

namespace toolkit {

/// First and last address.
struct MemoryBlock {
    std::int64_t Start;
    std::int64_t End;
};

/// Bytes that can still be handed out; may be negative.
[[nodiscard]] std::int64_t FreeMemory();

/// Hands out `bytes` bytes, at most FreeMemory(), rounded up at the lower end: a block begins at an
/// address whose bits 0 to 9 and 11 are clear.
MemoryBlock HandOut(std::int64_t bytes);

/// Takes back the blocks of a set-up window and closes the gap: the blocks of all windows below
/// move up with their content. Marks the window as not set up, without blocks. Logs, with P for
/// "t_InitWindow: GraphicWindow #<window>":
///   P " high memory = $<end>, graphic block size to delete = $<size>."
///   P " high memory = $<end>, text block size to delete = $<size>."
///   P " moving graphic block for win #<j>$<start>...<end> to<start>...<end>"
///   P " moving text block for win #<j>$<start>...<end> to$<start>...<end>"
void ReleaseBlocks(std::uint8_t window);

}  // namespace toolkit
