#include "toolkit/text/glyph.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <span>

#include "toolkit/core/memory.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/output.h"
#include "toolkit/core/utf8.h"
#include "toolkit/text/blend.h"
#include "toolkit/text/grid_span.h"
#include "toolkit/window/window.h"

using toolkit::PrintLine;
using toolkit::Times;

namespace {

constexpr std::int64_t kGreyFormat = 2;
constexpr std::int64_t kOtherFormats[] = {0, 100, 102};
constexpr std::int64_t kWidestGlyph = 8192;  // no picture is wider
constexpr std::size_t kRowBytes = kWidestGlyph * 4 + 8;

// One row of a glyph on its way into the picture: `Count` pixels from pixel `First` of the run of
// picture bytes that `Run` is a copy of.
struct Row {
    const std::uint8_t* Grey;
    std::int64_t Count;
    std::int64_t First;  // within the first byte of the run; 0 from 8 bits on
    std::uint8_t* Run;
};

struct Tables {
    const toolkit::Blend* Colors;
    const std::array<std::uint8_t, 256>* Nearest;  // at 4 bits
};

using PutRow = void (*)(const Row& row, const Tables& tables);

void Put1(const Row& row, const Tables& tables) {
    for (std::int64_t j = 0; j < row.Count; ++j) {
        const std::int64_t x = row.First + j;
        std::uint8_t& byte = row.Run[x / 8];
        const auto bit = static_cast<unsigned>(7 - x % 8);
        byte = static_cast<std::uint8_t>((byte & ~(1U << bit)) |
                                         unsigned{tables.Colors->Ink[row.Grey[j]]} << bit);
    }
}

void Put4(const Row& row, const Tables& tables) {
    for (std::int64_t j = 0; j < row.Count; ++j) {
        const std::int64_t x = row.First + j;
        std::uint8_t& byte = row.Run[x / 2];
        const unsigned number = (*tables.Nearest)[row.Grey[j]];
        byte = static_cast<std::uint8_t>(x % 2 == 0 ? (byte & 0x0FU) | number << 4U
                                                    : (byte & 0xF0U) | number);
    }
}

void Put8(const Row& row, const Tables& tables) {
    for (std::int64_t j = 0; j < row.Count; ++j) row.Run[j] = tables.Colors->Grey[row.Grey[j]];
}

void Put16(const Row& row, const Tables& tables) {
    for (std::int64_t j = 0; j < row.Count; ++j) {
        row.Run[2 * j + 1] = tables.Colors->Grey[row.Grey[j]];
    }
}

// Writes four bytes for every three; the next pixel, or the slack of the buffer, takes the fourth.
void Put24(const Row& row, const Tables& tables) {
    for (std::int64_t j = 0; j < row.Count; ++j) {
        std::memcpy(row.Run + 3 * j, tables.Colors->Mixed[row.Grey[j]].data(), 4);
    }
}

void Put32(const Row& row, const Tables& tables) {
    for (std::int64_t j = 0; j < row.Count; ++j) {
        std::memcpy(row.Run + 4 * j + 1, tables.Colors->Mixed[row.Grey[j]].data(), 3);
    }
}

// How the rows of a bit depth are put. Where a row does not write all of its bytes, the others keep
// what the picture holds.
struct DepthRow {
    std::int64_t BitDepth;
    bool KeepsBytes;
    PutRow Put;
};

constexpr DepthRow kDepths[] = {
    {1, true, Put1},     //
    {4, true, Put4},     //
    {8, false, Put8},    //
    {16, true, Put16},   //
    {24, false, Put24},  //
    {32, true, Put32},   //
};

// The grey values of a glyph, or blanks where the font's data does not hold all of it.
std::span<const std::uint8_t> GlyphData(const t_Font& font, std::uint8_t symbol) {
    const std::int64_t size = font.Width * font.Height;
    const std::int64_t start = symbol * size;
    if (start + size > std::ssize(font.Data)) return {};
    return std::span(font.Data).subspan(static_cast<std::size_t>(start),
                                        static_cast<std::size_t>(size));
}

void DrawGlyph(const t_Window& w, std::uint8_t symbol, std::uint8_t pair, std::int64_t column,
               std::int64_t line) {
    const t_Font& font = w.Font;
    const std::int64_t depth = w.BitDepth;
    const auto* const put = std::ranges::find(kDepths, depth, &DepthRow::BitDepth);
    if (put == std::end(kDepths) || font.Width < 1 || font.Width > kWidestGlyph) return;
    if (font.Height < 1 || font.Height > kWidestGlyph) return;
    if (w.Width > kWidestGlyph || w.Height > kWidestGlyph) return;

    const std::span<const std::uint8_t> data = GlyphData(font, symbol);
    static constexpr std::array<std::uint8_t, kWidestGlyph> kNoInk{};
    const Tables tables{&toolkit::BlendOf(pair),
                        depth == 4 ? &toolkit::NearestColorsOf(pair) : nullptr};
    std::array<std::uint8_t, kRowBytes> run;

    const std::int64_t firstBit = (column - 1) * font.Width * depth;
    const std::int64_t endBit = firstBit + font.Width * depth;
    const std::int64_t bytes = (endBit + 7) / 8 - firstBit / 8;
    const std::int64_t rowBytes = w.Width * depth / 8;
    const std::int64_t start = w.MemoryStart;
    const std::int64_t end = w.MemoryEnd + 1;
    for (std::int64_t r = 0; r < font.Height; ++r) {
        const std::int64_t y = (line - 1) * font.Height + r;
        const std::int64_t address = start + y * rowBytes + firstBit / 8;
        if (start < 0 || address + bytes > end) return;
        const std::span<std::uint8_t> copy(run.data(), static_cast<std::size_t>(bytes));
        if (put->KeepsBytes && !toolkit::ReadRun(address, copy)) return;
        const std::uint8_t* const grey =
            data.empty() ? kNoInk.data() : data.data() + r * font.Width;
        put->Put({grey, font.Width, firstBit % 8 / depth, run.data()}, tables);
        toolkit::WriteRun(address, copy);
    }
}

void DrawOrRefuse(const t_Window& w, std::uint8_t symbol, std::uint8_t pair, std::int64_t column,
                  std::int64_t line) {
    if (symbol < w.Font.Start || symbol > w.Font.End) return;
    if (w.Font.Format == kGreyFormat) {
        DrawGlyph(w, symbol, pair, column, line);
    } else if (std::ranges::find(kOtherFormats, w.Font.Format) != std::end(kOtherFormats)) {
        PrintLine("t_PrintSymbol: Font format must be uncompressed grey for text-printing.");
    } else {
        PrintLine("t_PrintSymbol: Illegal font format.");
    }
}

void RecordCell(const t_Window& w, std::uint8_t symbol, std::uint8_t pair, std::int64_t column,
                std::int64_t line) {
    const std::int64_t index = toolkit::CellIndex(w, column, line);
    if (index < 0) return;
    const std::int64_t address = w.TextMemoryStart + index;
    toolkit::Poke(address, symbol);
    toolkit::Poke(address + toolkit::ColorOffset(w), pair);
}

}  // namespace

void t_PrintSymbol(std::uint8_t window, std::uint8_t symbol, std::uint8_t color,
                   std::int64_t column, std::int64_t line) {
    t_Window* const w = toolkit::GraphicWindow(__func__, window);
    if (w == nullptr) return;
    const std::int64_t redirect = w->TextRedirectOutput;
    if (redirect == 2) return toolkit::PrintPiece(toolkit::CharacterString(symbol));
    if (redirect != 1) return;
    if (!toolkit::IsUsable(*w, toolkit::Need::TextBlock) || w->Font.Data.empty()) {
        toolkit::PrintNotInitialized(__func__, window);
        return;
    }
    if (column < 1 || line < 1 || Times(w->Font.Width, column) > w->Width ||
        Times(w->Font.Height, line) > w->Height) {
        PrintLine("t_PrintSymbol: Window #", window, " illegal coordinates (x = ", column,
                  ", y = ", line, ").");
        return;
    }
    const auto pair = w->TextInverse ? static_cast<std::uint8_t>(color << 4U | color >> 4U) : color;
    DrawOrRefuse(*w, symbol, pair, column, line);
    RecordCell(*w, symbol, pair, column, line);
}

void toolkit::FillCells(std::uint8_t window, std::uint8_t symbol, std::int64_t firstColumn,
                        std::int64_t lastColumn, std::int64_t line) {
    const Span columns = GridSpan(firstColumn, lastColumn);
    for (std::int64_t column = columns.First; column <= columns.Last; ++column) {
        t_PrintSymbol(window, symbol, t_Windows[window].TextColor, column, line);
    }
}
