#include "toolkit/graphics/lo_res.h"

#include <array>
#include <optional>
#include <span>

#include "toolkit/core/codes.h"
#include "toolkit/core/number_format.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/output.h"
#include "toolkit/text/glyph.h"
#include "toolkit/window/window.h"

using toolkit::Need;
using toolkit::Plus;
using toolkit::Times;
using toolkit::UsableWindow;

namespace {

using toolkit::kBlank;

constexpr std::uint8_t kBlockCharacter = 3;

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

}  // namespace

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
