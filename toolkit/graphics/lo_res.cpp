#include "toolkit/graphics/lo_res.h"

#include <array>
#include <optional>
#include <span>

#include "platform/platform.h"
#include "toolkit/core/memory.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/output.h"
#include "toolkit/core/palette.h"
#include "toolkit/core/tables.h"
#include "toolkit/core/text.h"
#include "toolkit/core/utf8.h"
#include "toolkit/text/glyph.h"
#include "toolkit/text/grid_span.h"
#include "toolkit/window/host_windows.h"
#include "toolkit/window/window.h"

using toolkit::Need;
using toolkit::Plus;
using toolkit::Times;
using toolkit::UsableWindow;

namespace {

constexpr std::uint8_t kBlockCharacter = 3;
constexpr std::uint8_t kBlank = 32;

struct Block {
    std::int64_t X;
    std::int64_t Y;
};

// What one plot point covers: its scale, and the blocks relative to the first one.
struct ModeRow {
    std::int64_t ScaleX;
    std::int64_t ScaleY;
    std::span<const Block> Blocks;
};

constexpr Block kOneBlock[] = {{0, 0}};
constexpr Block kTwoBlocks[] = {{0, 0}, {1, 0}};
constexpr Block kFourBlocks[] = {{0, 0}, {1, 0}, {0, 1}, {1, 1}};

constexpr ModeRow kBlockModes[] = {
    {1, 1, kOneBlock},    // mode 0
    {2, 1, kTwoBlocks},   // mode 1
    {2, 2, kFourBlocks},  // mode 2
};

constexpr std::int64_t kQuarterMode = 3;

const ModeRow* BlockMode(std::int64_t mode) {
    return mode >= 0 && mode < std::ssize(kBlockModes) ? &kBlockModes[mode] : nullptr;
}

Block FirstBlock(const t_Window& w, const ModeRow& mode, std::int64_t x, std::int64_t y) {
    return {Plus(w.LoResOffsetX, Times(mode.ScaleX, x)),
            Plus(w.LoResOffsetY, Times(mode.ScaleY, y))};
}

bool InGrid(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height) {
    return x >= 0 && y >= 0 && x < width && y < height;
}

bool IsBlock(const t_Window& w, const Block& block) {
    return InGrid(block.X, block.Y, w.TextWidth, Times(2, w.TextHeight));
}

void PlotBlock(std::uint8_t window, const t_Window& w, const Block& block) {
    if (!IsBlock(w, block)) return;
    const std::int64_t column = block.X + 1;
    const std::int64_t line = block.Y / 2 + 1;
    const std::uint8_t before = toolkit::CellAt(w, column, line).Color;
    const std::uint8_t current = w.TextColor & 0xF0U;
    const auto color = static_cast<std::uint8_t>(
        block.Y % 2 == 0 ? current | (before & 0x0FU) : (before & 0xF0U) | current >> 4U);
    t_PrintSymbol(window, kBlockCharacter, color, column, line);
}

// The quarters of a cell that are not plotted, as bits by position: 8 upper left, 4 upper right,
// 2 lower left, 1 lower right.
constexpr unsigned kQuarterBits[] = {8, 4, 2, 1};
constexpr unsigned kAllQuarters = 15;

// A code of a quarter-block character is the set itself, but for the blank: nothing plotted.
std::optional<unsigned> UnplottedQuarters(std::uint8_t code) {
    if (code == kBlank) return kAllQuarters;
    if (code < kAllQuarters) return code;
    return std::nullopt;
}

std::uint8_t CodeAfterPlot(std::uint8_t code, std::size_t position, bool plot) {
    const std::optional<unsigned> before = UnplottedQuarters(code);
    if (!before) return code;
    const unsigned bit = kQuarterBits[position];
    const unsigned after = plot ? *before & ~bit : *before | bit;
    return after == kAllQuarters ? kBlank : static_cast<std::uint8_t>(after);
}

void PlotQuarter(std::uint8_t window, const t_Window& w, std::int64_t x, std::int64_t y,
                 bool plot) {
    if (!InGrid(x, y, Times(2, w.TextWidth), Times(2, w.TextHeight))) return;
    const std::int64_t column = x / 2 + 1;
    const std::int64_t line = y / 2 + 1;
    const std::uint8_t code = toolkit::CellAt(w, column, line).Symbol;
    const std::int64_t position = x % 2 + 2 * (y % 2);
    toolkit::PrintLine("t_PlotHalfSize: PixelByte = ", t_HexText(code).substr(6), ", x = ", x,
                       ", y = ", y, ", Plot position ", position);
    const std::uint8_t after = CodeAfterPlot(code, static_cast<std::size_t>(position), plot);
    t_PrintSymbol(window, after, w.TextColor, column, line);
}

std::int64_t Modulo16(std::int64_t color) {
    return color & 15;
}

// The characters of the grid, each code as the character of that number.
std::string GridText(const t_Window& w, std::string_view separator) {
    const toolkit::CellArea grid = toolkit::GridArea(w, {1, w.TextWidth}, {1, w.TextHeight});
    std::string text;
    for (const std::int64_t line : grid.Lines) {
        for (const std::int64_t column : grid.Columns) {
            toolkit::AppendCharacter(text, toolkit::CellAt(w, column, line).Symbol);
        }
        text += separator;
    }
    return text;
}

std::string WithoutTrailing(std::string_view text, char what) {
    return std::string(text.substr(0, text.find_last_not_of(what) + 1));
}

// Each line without its trailing blanks, and the whole without empty lines at its end.
std::string TrimmedLines(std::string_view text) {
    std::string trimmed;
    while (true) {
        const std::size_t end = text.find('\r');
        trimmed += WithoutTrailing(text.substr(0, end), ' ');
        if (end == std::string_view::npos) break;
        trimmed += '\r';
        text.remove_prefix(end + 1);
    }
    return WithoutTrailing(trimmed, '\r');
}

}  // namespace

void t_Color(std::uint8_t window, std::int64_t color) {
    t_Window* const w = UsableWindow(__func__, window, Need::SetUp);
    if (w == nullptr) return;
    w->TextColor = static_cast<std::uint8_t>(Modulo16(color) << 4 | (w->TextColor & 0x0F));
    w->RGBColor = t_PaletteColor(Modulo16(color));
}

void t_LoResMode(std::uint8_t window, std::int64_t mode) {
    t_Window* const w = UsableWindow(__func__, window, Need::SetUp);
    if (w != nullptr) w->LoResMode = mode;
}

void t_LoResOffset(std::uint8_t window, std::int64_t offsetX, std::int64_t offsetY) {
    t_Window* const w = UsableWindow(__func__, window, Need::SetUp);
    if (w == nullptr) return;
    w->LoResOffsetX = offsetX;
    w->LoResOffsetY = offsetY;
}

void t_Plot(std::uint8_t window, std::int64_t x, std::int64_t y) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return;
    const std::int64_t mode = w->LoResMode;
    if (mode == kQuarterMode) {
        return PlotQuarter(window, *w, Plus(w->LoResOffsetX, x), Plus(w->LoResOffsetY, y), true);
    }
    const ModeRow* const row = BlockMode(mode);
    if (row == nullptr) {
        toolkit::PrintLine("t_Plot: Illegal graphic mode.");
        return;
    }
    const Block first = FirstBlock(*w, *row, x, y);
    for (const Block& block : row->Blocks) {
        PlotBlock(window, *w, {Plus(first.X, block.X), Plus(first.Y, block.Y)});
    }
}

void t_PlotBlock(std::uint8_t window, std::int64_t blockX, std::int64_t blockY) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w != nullptr) PlotBlock(window, *w, {blockX, blockY});
}

void t_PlotHalfSize(std::uint8_t window, std::int64_t x, std::int64_t y, bool plot) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w != nullptr) PlotQuarter(window, *w, x, y, plot);
}

std::int64_t t_Scrn(std::uint8_t window, std::int64_t x, std::int64_t y) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return -1;
    const ModeRow* const row = BlockMode(w->LoResMode);
    if (row == nullptr) return -1;
    const Block block = FirstBlock(*w, *row, x, y);
    if (!IsBlock(*w, block)) return -1;
    const std::uint8_t color = toolkit::CellAt(*w, block.X + 1, block.Y / 2 + 1).Color;
    return block.Y % 2 == 0 ? color >> 4 : color & 15;
}

void t_ColorBorder(std::uint8_t window, std::int64_t color) {
    t_Window* const w = UsableWindow(__func__, window, Need::SetUp);
    if (w == nullptr) return;
    const t_RGBColor border = t_PaletteColor(Modulo16(color));
    w->RGBColorBorder = border;
    platform::RunOnMain([&] {
        platform::Window* const host = t_WindowHostWindow(window);
        if (host == nullptr) return;
        host->SetBackgroundColor({border.Alpha, border.Red, border.Green, border.Blue});
    });
}

void t_InvertRect(std::uint8_t window, std::int64_t firstColumn, std::int64_t firstLine,
                  std::int64_t lastColumn, std::int64_t lastLine) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return;
    if (firstColumn < 1 || lastColumn < firstColumn || lastColumn > w->TextWidth) return;
    if (firstLine < 1 || lastLine < firstLine || lastLine > w->TextHeight) return;
    const toolkit::CellArea area =
        toolkit::GridArea(*w, {firstColumn, lastColumn}, {firstLine, lastLine});
    const bool inverse = w->TextInverse;
    w->TextInverse = true;
    for (const std::int64_t line : area.Lines) {
        for (const std::int64_t column : area.Columns) {
            const toolkit::Cell cell = toolkit::CellAt(*w, column, line);
            t_PrintSymbol(window, cell.Symbol, cell.Color, column, line);
        }
    }
    w->TextInverse = inverse;
}

void t_FullArea(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::SetUp);
    if (w == nullptr) return;
    w->TextFirstColumn = 1;
    w->TextLastColumn = w->TextWidth;
    w->TextFirstLine = 1;
    w->TextLastLine = w->TextHeight;
}

std::string t_GetScreen(std::uint8_t window, std::string_view separator) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return {};
    return t_TextToString(t_StringToText(TrimmedLines(GridText(*w, separator))));
}
