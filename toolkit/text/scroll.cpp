#include "toolkit/text/scroll.h"

#include <algorithm>

#include "toolkit/core/codes.h"
#include "toolkit/core/memory.h"
#include "toolkit/core/numbers.h"
#include "toolkit/text/glyph.h"
#include "toolkit/text/grid_span.h"
#include "toolkit/window/window.h"

using toolkit::Minus;
using toolkit::Need;
using toolkit::Plus;
using toolkit::Span;
using toolkit::Times;

namespace {

// The addresses from First to End, End not included.
struct Bounds {
    std::int64_t First;
    std::int64_t End;
};

// Moves `count` bytes, as far as both ends stay inside `bounds`: a font that does not fit the grid,
// or an area beyond it, must not reach another window's memory.
void MoveWithin(const Bounds& bounds, std::int64_t source, std::int64_t destination,
                std::int64_t count) {
    if (std::min(source, destination) < bounds.First) return;
    const std::int64_t room = Minus(bounds.End, std::max(source, destination));
    t_MoveMemory(source, destination, std::min(count, room));
}

// The lines that a scroll moves: from `From` on, `Count` of them, to the lines `To` and on, all
// counted from 0 in the grid.
struct LineMove {
    std::int64_t From;
    std::int64_t To;
    std::int64_t Count;
};

void MoveCells(const t_Window& w, const LineMove& move) {
    const std::int64_t half = toolkit::ColorOffset(w);
    const std::int64_t width = w.TextWidth;
    const std::int64_t characters = w.TextMemoryStart;
    for (const std::int64_t start : {Plus(characters, half), characters}) {
        MoveWithin({start, Plus(start, half)}, Plus(start, Times(width, move.From)),
                   Plus(start, Times(width, move.To)), Times(width, move.Count));
    }
}

// Moves whole rows of pixels; the last one only as far as the grid is wide.
void MovePixels(const t_Window& w, const LineMove& move) {
    const t_Font& font = w.Font;
    const std::int64_t start = w.MemoryStart;
    if (start < 0) return;
    const auto bytes = [&](std::int64_t pixels) { return Times(pixels, w.BitDepth) / 8; };
    const auto line = [&](std::int64_t n) { return bytes(Times(Times(font.Height, n), w.Width)); };
    const std::int64_t lastRow = Minus(Times(font.Height, Plus(move.From, move.Count)), 1);
    const std::int64_t end =
        bytes(Plus(Times(font.Width, w.TextLastColumn), Times(lastRow, w.Width)));
    MoveWithin({start, Plus(w.MemoryEnd, 1)}, Plus(start, line(move.From)),
               Plus(start, line(move.To)), Minus(end, line(move.From)));
}

toolkit::CellArea TextArea(const t_Window& w) {
    return toolkit::GridArea(w, {w.TextFirstColumn, w.TextLastColumn},
                             {w.TextFirstLine, w.TextLastLine});
}

bool SpansWholeLines(const t_Window& w) {
    return w.TextFirstColumn == 1 && w.TextLastColumn == w.TextWidth;
}

// Redraws a line from the one `distance` lines below it. Stored colours are the colours as drawn.
void CopyLine(std::uint8_t window, const t_Window& w, const Span& columns, std::int64_t line,
              std::int64_t distance) {
    for (const std::int64_t column : columns) {
        const toolkit::Cell cell = toolkit::CellAt(w, column, line + distance);
        t_PrintSymbol(window, cell.Symbol, cell.Color, column, line);
    }
}

enum class Direction : std::int64_t { Up = 1, Down = -1 };

void MoveWholeLines(const t_Window& w, const Span& lines, Direction direction) {
    const std::int64_t upper = Minus(lines.First, 1);  // from 0
    const std::int64_t count = Minus(lines.Last, lines.First);
    const LineMove move = direction == Direction::Up ? LineMove{lines.First, upper, count}
                                                     : LineMove{upper, lines.First, count};
    MoveCells(w, move);
    MovePixels(w, move);
}

// Line by line, beginning with the one that the area loses.
void MovePartsOfLines(std::uint8_t window, t_Window& w, const toolkit::CellArea& area,
                      Direction direction) {
    const auto step = static_cast<std::int64_t>(direction);
    std::int64_t line = direction == Direction::Up ? area.Lines.First : area.Lines.Last;
    const bool inverse = w.TextInverse;
    w.TextInverse = false;
    for (std::int64_t left = area.Lines.Count(); left > 1; --left, line += step) {
        CopyLine(window, w, area.Columns, line, step);
    }
    w.TextInverse = inverse;
}

void Scroll(std::uint8_t window, t_Window& w, Direction direction) {
    if (w.ScrollLock) return;
    const toolkit::CellArea area = TextArea(w);
    if (SpansWholeLines(w)) {
        MoveWholeLines(w, area.Lines, direction);
    } else {
        MovePartsOfLines(window, w, area, direction);
    }
    toolkit::FillCells(window, toolkit::kBlank, w.TextFirstColumn, w.TextLastColumn,
                       direction == Direction::Up ? area.Lines.Last : area.Lines.First);
}

}  // namespace

void t_ScrollUp(std::uint8_t window) {
    t_Window* const w = toolkit::UsableWindow(__func__, window, Need::TextBlock);
    if (w != nullptr) Scroll(window, *w, Direction::Up);
}

void t_ScrollDown(std::uint8_t window) {
    t_Window* const w = toolkit::UsableWindow(__func__, window, Need::TextBlock);
    if (w != nullptr) Scroll(window, *w, Direction::Down);
}
