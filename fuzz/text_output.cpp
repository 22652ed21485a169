#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "fuzz/support.h"

// The input is a window and what is printed in it. Printed at once and code by code it comes to the
// same, and the picture is the one that the text memory describes.

namespace {

constexpr std::uint8_t kWhole = 0;       // is printed to at once
constexpr std::uint8_t kPieces = 1;      // is printed to code by code
constexpr std::uint8_t kRedrawn = 2;     // is drawn from the text memory of the first
constexpr std::uint8_t kNeighbours = 3;  // from here on

// A window of the smallest size between guards.
void Open(std::uint8_t window, std::int64_t bitDepth, const t_Font& font) {
    t_InitWindow(window, bitDepth, false, 32, 32, 0, 0, font, true);
    fuzz::OpenNeighbour(window + kNeighbours);
}

// Sets the fields that text output depends on. Of an orderly window the area lies in the grid and
// the cursor in the area.
void SetFields(t_Window& w, fuzz::Input& input, bool orderly) {
    const auto between = [&](std::int64_t first, std::int64_t last) {
        return orderly ? input.Between(first, last) : input.Between(-3, w.TextWidth + 3);
    };
    w.TextFirstColumn = between(1, w.TextWidth);
    w.TextLastColumn = between(w.TextFirstColumn, w.TextWidth);
    w.TextFirstLine = between(1, w.TextHeight);
    w.TextLastLine = between(w.TextFirstLine, w.TextHeight);
    w.TextHpos = between(w.TextFirstColumn, w.TextLastColumn);
    w.TextVpos = between(w.TextFirstLine, w.TextLastLine);
    w.TextDisplayMode = input.OneOf({0, 0, 1, 2, 3, 4, 99, -7});
    w.TextRedirectOutput = input.OneOf({1, 1, 1, 1, 1, 1, 2, 0});
    w.TextColor = input.Byte();
    w.ScrollLock = input.Between(0, 7) == 7;
    w.TextInverse = input.Between(0, 3) == 3;
}

void CheckCursor(const t_Window& w) {
    fuzz::Check(w.TextHpos >= 1 && w.TextHpos <= w.TextWidth, "the cursor's column is in the grid");
    fuzz::Check(w.TextVpos >= 1 && w.TextVpos <= w.TextHeight, "the cursor's line is in the grid");
}

std::vector<std::uint8_t> Picture(const t_Window& w) {
    return fuzz::Memory(w.MemoryStart, w.MemoryStart + w.Width * w.Height * w.BitDepth / 8 - 1);
}

// The cells of the text memory, line by line.
std::vector<toolkit::Cell> Cells(const t_Window& w) {
    std::vector<toolkit::Cell> cells;
    for (std::int64_t line = 1; line <= w.TextHeight; ++line) {
        for (std::int64_t column = 1; column <= w.TextWidth; ++column) {
            cells.push_back(toolkit::CellAt(w, column, line));
        }
    }
    return cells;
}

bool HaveEqualBlocks(const t_Window& a, const t_Window& b) {
    return toolkit::LengthOf(a.MemoryStart, a.MemoryEnd) ==
               toolkit::LengthOf(b.MemoryStart, b.MemoryEnd) &&
           toolkit::ColorOffset(a) == toolkit::ColorOffset(b);
}

void CheckSame(const t_Window& a, const t_Window& b) {
    fuzz::Check(a.TextHpos == b.TextHpos && a.TextVpos == b.TextVpos, "one cursor");
    fuzz::Check(a.TextColor == b.TextColor && a.TextInverse == b.TextInverse, "one colour");
    fuzz::Check(a.TextDisplayMode == b.TextDisplayMode, "one display mode");
    fuzz::Check(Picture(a) == Picture(b), "one picture");
    fuzz::Check(Cells(a) == Cells(b), "one text memory");
}

// Draws every cell of the text memory of one window in another.
void Redraw(const t_Window& from, std::uint8_t to) {
    std::int64_t n = 0;
    for (const toolkit::Cell& cell : Cells(from)) {
        t_PrintSymbol(to, cell.Symbol, cell.Color, n % from.TextWidth + 1, n / from.TextWidth + 1);
        ++n;
    }
}

void PrintIn(std::int64_t bitDepth, const t_Font& font, bool orderly, fuzz::Input& input) {
    for (const std::uint8_t window : {kWhole, kPieces, kRedrawn}) Open(window, bitDepth, font);
    const fuzz::Guards guards;
    t_Window& whole = t_Windows[kWhole];
    t_Window& pieces = t_Windows[kPieces];
    fuzz::Input again = input;
    SetFields(whole, input, orderly);
    SetFields(pieces, again, orderly);

    const std::span<const std::uint8_t> codes = input.Rest();
    Text text;
    text.Elements.assign(codes.begin(), codes.end());
    t_Print(kWhole, text);
    for (const std::uint8_t code : codes) {
        Text piece;
        piece.Elements = {code};
        t_Print(kPieces, piece);
        if (orderly) CheckCursor(pieces);
    }
    // An area beyond the grid scrolls as far as the block goes, and blocks differ in length.
    if (orderly || HaveEqualBlocks(whole, pieces)) CheckSame(whole, pieces);
    Redraw(whole, kRedrawn);
    const bool asStored = Picture(whole) == Picture(t_Windows[kRedrawn]);
    fuzz::Check(!orderly || asStored, "text shows as stored");
    guards.ExpectUntouched();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const t_Font fonts[] = {fuzz::GreyFont(8, 8), fuzz::GreyFont(2, 4)};
    fuzz::Input input(data, size);
    static_cast<void>(fuzz::Toolkit::Fresh());
    const std::int64_t bitDepth = input.OneOf({1, 4, 8, 16, 24, 32});
    const t_Font& font = fonts[input.Between(0, 1)];
    const bool orderly = input.Between(0, 2) != 2;
    PrintIn(bitDepth, font, orderly, input);
    return 0;
}
