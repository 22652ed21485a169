#include "toolkit/text/glyph.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

#include "platform/search.h"
#include "toolkit/core/bit_depths.h"
#include "toolkit/core/memory.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/output.h"
#include "toolkit/core/utf8.h"
#include "toolkit/text/finished_glyphs.h"
#include "toolkit/text/grid_span.h"
#include "toolkit/window/window.h"

using toolkit::PrintLine;
using toolkit::Times;

namespace {

constexpr std::int64_t kGreyFormat = 2;
constexpr std::int64_t kOtherFormats[] = {0, 100, 102};
// Up to here the characters are blocks: programs paint fields of them again and again as they are.
constexpr std::uint8_t kLastBlockCharacter = 14;

// What drawing needs of a record, read once: a thread that sets the window up anew meanwhile may
// spoil the picture, never more.
struct Target {
    std::int64_t BitDepth;
    std::int64_t Width;
    std::int64_t Height;
    std::int64_t Start;
    std::int64_t End;
    const t_Font& Font;

    explicit Target(const t_Window& w)
        : BitDepth(w.BitDepth),
          Width(w.Width),
          Height(w.Height),
          Start(w.MemoryStart),
          End(w.MemoryEnd),
          Font(w.Font) {}

    // A picture and a font that drawing can count with, whatever a program wrote into the record.
    [[nodiscard]] bool CanBeDrawn() const {
        const auto isSide = [](std::int64_t side) {
            return side >= 1 && side <= toolkit::kLargestSide;
        };
        return isSide(Font.Width) && isSide(Font.Height) && isSide(Width) && isSide(Height) &&
               toolkit::InMemory(Start, 1) && toolkit::IsBitDepth(BitDepth);
    }
    [[nodiscard]] bool Contains(std::int64_t column, std::int64_t line) const {
        return column >= 1 && line >= 1 && Times(Font.Width, column) <= Width &&
               Times(Font.Height, line) <= Height;
    }
    [[nodiscard]] bool HasGlyph(std::uint8_t symbol) const {
        return symbol >= Font.Start && symbol <= Font.End;
    }
    [[nodiscard]] toolkit::GlyphKey Key(std::uint8_t symbol, std::uint8_t pair) const {
        return {symbol, pair, static_cast<std::uint8_t>(BitDepth)};
    }
};

// Where a glyph lies in the target's picture, in bits of its rows.
struct Place {
    std::int64_t FirstBit;
    std::int64_t Bits;
    std::int64_t RowBytes;  // of the picture
    std::int64_t Address;   // of the first row
    std::int64_t Rows;

    Place(const Target& t, std::int64_t column, std::int64_t line)
        : FirstBit((column - 1) * t.Font.Width * t.BitDepth),
          Bits(t.Font.Width * t.BitDepth),
          RowBytes(t.Width * t.BitDepth / 8),
          Address(t.Start + (line - 1) * t.Font.Height * RowBytes + FirstBit / 8),
          Rows(t.Font.Height) {}

    [[nodiscard]] bool IsWholeBytes() const { return FirstBit % 8 == 0 && Bits % 8 == 0; }
    [[nodiscard]] toolkit::RowBlock Block() const {
        return {Address, RowBytes, (FirstBit % 8 + Bits + 7) / 8, Rows};
    }
};

// The grey values of a glyph, or blanks where the font's data does not hold all of it.
std::span<const std::uint8_t> GlyphData(const t_Font& font, std::uint8_t symbol) {
    const std::int64_t size = font.Width * font.Height;
    const std::int64_t start = symbol * size;
    if (start + size <= std::ssize(font.Data)) {
        return std::span(font.Data).subspan(static_cast<std::size_t>(start),
                                            static_cast<std::size_t>(size));
    }
    thread_local std::vector<std::uint8_t> blank;
    blank.assign(static_cast<std::size_t>(size), 0);
    return blank;
}

// A cell as it is to be drawn; `IsRepeated` tells that it is recorded like this.
struct CellToDraw {
    toolkit::Cell What;
    std::int64_t Column;
    std::int64_t Line;
    bool IsRepeated;
};

// The target contains the cell.
void DrawGlyph(const Target& target, const CellToDraw& cell) {
    if (!target.CanBeDrawn()) return;
    const Place place(target, cell.Column, cell.Line);
    const toolkit::RowBlock block = place.Block();
    if (!toolkit::LiesWithin(block, target.Start, target.End)) return;
    const toolkit::GlyphKey key = target.Key(cell.What.Symbol, cell.What.Color);
    const std::span<const std::uint8_t> grey = GlyphData(target.Font, cell.What.Symbol);
    if (place.IsWholeBytes()) {
        toolkit::PutGlyph(block, key, grey, cell.IsRepeated);
    } else {
        toolkit::PutGlyphInsideBytes(block, key, grey, place.FirstBit % 8);
    }
}

void DrawOrRefuse(const Target& target, const CellToDraw& cell) {
    if (!target.HasGlyph(cell.What.Symbol)) return;
    if (target.Font.Format == kGreyFormat) {
        DrawGlyph(target, cell);
    } else if (platform::Contains(kOtherFormats, target.Font.Format)) {
        PrintLine("t_PrintSymbol: Font format must be uncompressed grey for text-printing.");
    } else {
        PrintLine("t_PrintSymbol: Illegal font format.");
    }
}

// Whether there is a text block to print in and a font to print with.
bool CanPrint(const t_Window& w) {
    return toolkit::IsUsable(w, toolkit::Need::TextBlock) && !w.Font.Data.empty();
}

// Draws one glyph in a row of cells, pixel row by pixel row; false, and nothing is drawn, where not
// all of them can be drawn like that.
bool DrawStrip(const t_Window& w, std::uint8_t symbol, std::uint8_t pair,
               const toolkit::Span& columns, std::int64_t line) {
    const Target target(w);
    if (w.TextRedirectOutput != toolkit::TextOutput::ToWindow || !CanPrint(w) ||
        !target.HasGlyph(symbol) || target.Font.Format != kGreyFormat || !target.CanBeDrawn() ||
        columns.First > columns.Last || !target.Contains(columns.First, line) ||
        !target.Contains(columns.Last, line)) {
        return false;
    }
    const Place place(target, columns.First, line);
    const toolkit::RowBlock cell = place.Block();
    const std::int64_t count = columns.Count();
    const toolkit::RowBlock strip{cell.Address, cell.Stride, cell.Bytes * count, cell.Rows};
    if (!place.IsWholeBytes() || !toolkit::LiesWithin(strip, target.Start, target.End)) {
        return false;
    }
    toolkit::PutGlyphSideBySide(strip, cell.Bytes, target.Key(symbol, pair),
                                GlyphData(target.Font, symbol));
    return true;
}

void RecordCell(const t_Window& w, std::uint8_t symbol, std::uint8_t pair, std::int64_t column,
                std::int64_t line) {
    const std::int64_t index = toolkit::CellIndex(w, column, line);
    if (index < 0) return;
    const std::int64_t address = toolkit::Plus(w.TextMemoryStart, index);
    toolkit::Poke(address, symbol);
    toolkit::Poke(toolkit::Plus(address, toolkit::ColorOffset(w)), pair);
}

void RecordCells(const t_Window& w, std::uint8_t symbol, std::uint8_t pair,
                 const toolkit::Span& columns, std::int64_t line) {
    const std::int64_t first = toolkit::CellIndex(w, columns.First, line);
    const std::int64_t count = columns.Count();
    const std::int64_t address = toolkit::Plus(w.TextMemoryStart, first);
    if (first >= 0 && toolkit::CellIndex(w, columns.Last, line) == first + count - 1 &&
        toolkit::FillRun(address, count, symbol) &&
        toolkit::FillRun(toolkit::Plus(address, toolkit::ColorOffset(w)), count, pair)) {
        return;
    }
    for (const std::int64_t column : columns) {
        RecordCell(w, symbol, pair, column, line);
    }
}

// The foreground colour in the high four bits and the background in the low four trade places in
// inverse text.
std::uint8_t PairAsDrawn(const t_Window& w, std::uint8_t color) {
    return w.TextInverse ? static_cast<std::uint8_t>(color << 4U | color >> 4U) : color;
}

}  // namespace

void t_PrintSymbol(std::uint8_t window, std::uint8_t symbol, std::uint8_t color,
                   std::int64_t column, std::int64_t line) {
    t_Window* const w = toolkit::GraphicWindow(__func__, window);
    if (w == nullptr) return;
    const std::int64_t redirect = w->TextRedirectOutput;
    if (redirect == toolkit::TextOutput::ToStandardOutput)
        return toolkit::PrintPiece(toolkit::CharacterString(symbol));
    if (redirect != toolkit::TextOutput::ToWindow) return;
    if (!CanPrint(*w)) {
        toolkit::PrintNotInitialized(__func__, window);
        return;
    }
    const Target target(*w);
    if (!target.Contains(column, line)) {
        PrintLine("t_PrintSymbol: Window #", window, " illegal coordinates (x = ", column,
                  ", y = ", line, ").");
        return;
    }
    const toolkit::Cell cell{symbol, PairAsDrawn(*w, color)};
    const bool isRepeated =
        symbol <= kLastBlockCharacter && toolkit::CellAt(*w, column, line) == cell;
    DrawOrRefuse(target, {cell, column, line, isRepeated});
    RecordCell(*w, cell.Symbol, cell.Color, column, line);
}

void toolkit::FillCells(std::uint8_t window, std::uint8_t symbol, std::int64_t firstColumn,
                        std::int64_t lastColumn, std::int64_t line) {
    const Span columns = GridSpan(firstColumn, lastColumn);
    const t_Window& w = t_Windows[window];
    const std::uint8_t pair = PairAsDrawn(w, w.TextColor);
    if (DrawStrip(w, symbol, pair, columns, line)) {
        return RecordCells(w, symbol, pair, columns, line);
    }
    for (const std::int64_t column : columns) {
        t_PrintSymbol(window, symbol, w.TextColor, column, line);
    }
}
