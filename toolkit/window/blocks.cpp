#include "toolkit/window/blocks.h"

#include <algorithm>
#include <string>
#include <vector>

#include "toolkit/core/memory.h"
#include "toolkit/core/number_format.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/output.h"
#include "toolkit/window/window.h"

namespace toolkit {

namespace {

// Bits 0 to 9 and bit 11 of a start address are clear.
constexpr std::uint32_t kStartMask = 0xFFFF'F400;

std::string Range(std::int64_t start, std::int64_t end) {
    return Joined(t_HexText(start), "...", t_HexText(end));
}

// Windows set up below address `end`, by number.
std::vector<std::uint8_t> WindowsBelow(std::int64_t end) {
    std::vector<std::uint8_t> below;
    for (std::uint8_t j = 0; j < kGraphicWindows; ++j) {
        const t_Window& w = t_Windows[j];
        if (w.Initialized && w.MemoryStart < end) below.push_back(j);
    }
    return below;
}

bool HasTextBlockBelow(const t_Window& w, std::int64_t end) {
    return w.TextMemoryStart >= 0 && w.TextMemoryStart < end;
}

void LogMove(const std::string& prefix, std::uint8_t j, std::int64_t end, std::int64_t distance) {
    const t_Window& w = t_Windows[j];
    PrintLine(prefix, " moving graphic block for win #", j, "$", Range(w.MemoryStart, w.MemoryEnd),
              " to", Range(Plus(w.MemoryStart, distance), Plus(w.MemoryEnd, distance)));
    if (!HasTextBlockBelow(w, end)) return;
    PrintLine(prefix, " moving text block for win #", j, "$",
              Range(w.TextMemoryStart, w.TextMemoryEnd), " to$",
              Range(Plus(w.TextMemoryStart, distance), Plus(w.TextMemoryEnd, distance)));
}

// Moves the bytes first and the addresses after: a frame built meanwhile may be torn.
void MoveUp(Shared<std::int64_t>& start, Shared<std::int64_t>& end, std::int64_t distance) {
    const std::int64_t to = Plus(start, distance);
    MoveRun(start, to, LengthOf(start, end));
    start = to;
    end = Plus(end, distance);
}

}  // namespace

std::int64_t FreeMemory() {
    return Minus(t_HighMemory, kReservedBytes);
}

MemoryBlock HandOut(std::int64_t bytes) {
    const std::int64_t end = t_HighMemory;
    const std::int64_t start = static_cast<std::uint32_t>(end - bytes + 1) & kStartMask;
    t_HighMemory = start - 1;
    return {start, end};
}

void ReleaseBlocks(std::uint8_t window) {
    t_Window& w = t_Windows[window];
    const std::string prefix = Joined("t_InitWindow: GraphicWindow #", window);
    const std::int64_t end = w.MemoryEnd;
    w.Initialized = false;

    std::int64_t size = LengthOf(w.MemoryStart, end);
    PrintLine(prefix, " high memory = $", t_HexText(end), ", graphic block size to delete = $",
              t_HexText(size), ".");
    if (w.TextMemoryStart >= 0) {
        const std::int64_t textSize = LengthOf(w.TextMemoryStart, w.TextMemoryEnd);
        PrintLine(prefix, " high memory = $", t_HexText(end), ", text block size to delete = $",
                  t_HexText(textSize), ".");
        size = Plus(size, textSize);
    }

    std::vector<std::uint8_t> below = WindowsBelow(end);
    for (const std::uint8_t j : below) LogMove(prefix, j, end, size);
    // Highest block first, whatever the numbers say: each moves into space that is already free.
    std::sort(below.begin(), below.end(), [](std::uint8_t a, std::uint8_t b) {
        return t_Windows[a].MemoryStart > t_Windows[b].MemoryStart;
    });
    for (const std::uint8_t j : below) {
        t_Window& other = t_Windows[j];
        const bool text = HasTextBlockBelow(other, end);
        MoveUp(other.MemoryStart, other.MemoryEnd, size);
        if (text) MoveUp(other.TextMemoryStart, other.TextMemoryEnd, size);
    }

    t_HighMemory = Plus(t_HighMemory, size);
    w.MemoryStart = w.MemoryEnd = -1;
    w.TextMemoryStart = w.TextMemoryEnd = -1;
}

}  // namespace toolkit
