// Draws a chart of the two font files: every code with its number, and a sample text.
//
//   make_font_chart <folder of the font files> <picture to write>.png

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

#include "platform/search.h"
#include "tools/canvas.h"
#include "tools/font_file.h"
#include "tools/graphic_glyphs.h"

using tools::Canvas;
using tools::Font;
using tools::kCellHeight;
using tools::kCellWidth;
using tools::Rgb;

namespace {

constexpr const char* kFontFiles[] = {"MenloRegular 16x32.font", "MenloBold 16x32.font"};

constexpr Rgb kPaper = {244, 241, 233};
constexpr Rgb kTile = {255, 255, 255};
constexpr Rgb kGraphicTile = {228, 236, 246};
constexpr Rgb kInk = {28, 30, 46};
constexpr Rgb kNumberInk = {150, 138, 118};
constexpr Rgb kScreen = {34, 40, 104};
constexpr Rgb kScreenInk = {244, 244, 252};
constexpr Rgb kScreenGraphicInk = {132, 172, 255};

// The characters by which the sample names the drawn glyphs.
struct LookRow {
    char32_t Character;
    int Code;
};

// clang-format off
constexpr LookRow kLooks[] = {
    {U'█', 0}, {U'▛', 1}, {U'▜', 2}, {U'▀', 3}, {U'▙', 4}, {U'▌', 5}, {U'▚', 6}, {U'▘', 7},
    {U'▟', 8}, {U'▞', 9}, {U'▐', 10}, {U'▝', 11}, {U'▄', 12}, {U'▖', 13}, {U'▗', 14},
    {U'░', 16}, {U'▒', 17}, {U'▓', 18},
    {U'▁', 19}, {U'▂', 20}, {U'▃', 21}, {U'▅', 22}, {U'▆', 23}, {U'▇', 24},
    {U'╱', 25}, {U'╲', 26}, {U'◣', 27}, {U'◢', 28}, {U'↑', 29}, {U'↓', 30}, {U'♥', 31},
    {U'▩', 127}, {U'★', 128}, {U'▨', 129}, {U'←', 130}, {U'→', 132}, {U'●', 133},
    {U'╭', 134}, {U'╮', 135}, {U'╰', 136}, {U'╯', 137},
    {U'│', 138}, {U'┃', 139}, {U'─', 140}, {U'━', 141},
    {U'┌', 142}, {U'┐', 143}, {U'└', 144}, {U'┘', 145},
    {U'├', 146}, {U'┤', 147}, {U'┬', 148}, {U'┴', 149}, {U'┼', 150},
    {U'╔', 151}, {U'╗', 152}, {U'╚', 153}, {U'╝', 158}, {U'═', 131}, {U'║', 157},
    {U'–', 154}, {U'┄', 155}, {U'≡', 159}, {U'␣', 160}, {U'€', 164},
};
// clang-format on

constexpr std::u32string_view kSample[] = {
    U"┌─────────────────────────────────────────┬────────────────────┐",
    U"│ Verzögerung in ms: 50                   │ ╔════════════════╗ │",
    U"│ »Punkte pro Brick ->« 5, Einsatz 3 €    │ ║ Größe: 16 × 32 ║ │",
    U"│                                         │ ╚════════════════╝ │",
    U"│ Zwölf Boxkämpfer jagen Viktor quer über │ ╭───────┬────────╮ │",
    U"│ den großen Sylter Deich – ÄÖÜ äöü ß.    │ │ ←─●─→ │ ★ ♥ ↑↓ │ │",
    U"│ Ångström, façade, señor & là: [0O] {1l} │ ╰───────┴────────╯ │",
    U"├─────────────────────────────────────────┼────────────────────┤",
    U"│ ▁▂▃▄▅▆▇█▇▆▅▄▃▂▁ ░▒▓█▓▒░ ▩▩▩ ▨▨▨ ◢█◣ ╱╲╱ │ ┄┄┄┄┄┄ ━━━━━━ –––– │",
    U"│                                     ╲╱╲ │                    │",
    U"│ ▛▀▜ ▙▄▟ ▌▐ ▚▞▚▞ ▘▝▖▗ Leer␣zeichen   ╱╲╱ │ ≡≡≡≡≡≡ ┃┃ ║║ │ ──→ │",
    U"└─────────────────────────────────────────┴────────────────────┘",
};
constexpr int kSampleColumns = 64;
constexpr int kSampleLines = static_cast<int>(std::size(kSample));

// The chart of a font, from top to bottom: heading, 16 rows of 16 tiles, sample.
constexpr int kMargin = 48;
constexpr int kTilesInRow = 16;
constexpr int kTileWidth = 68;
constexpr int kTileHeight = 44;
constexpr int kTileGap = 4;
constexpr int kTitleHeight = 104;
constexpr int kHeadingHeight = 52;
constexpr int kSampleBorder = 32;
constexpr int kInnerWidth = kTilesInRow * kTileWidth;
constexpr int kGridLeft = kMargin + kTileGap / 2;
constexpr int kGridHeight = kTilesInRow * kTileHeight;
constexpr int kSampleHeight = kSampleLines * kCellHeight + 2 * kSampleBorder;
constexpr int kSampleGap = 24;
constexpr int kFontHeight = kHeadingHeight + kGridHeight + kSampleGap + kSampleHeight + kMargin;
constexpr int kWidth = kInnerWidth + 2 * kMargin;
constexpr int kHeight = kMargin + kTitleHeight + 2 * kFontHeight;

consteval bool SampleIsSquare() {
    return std::all_of(std::begin(kSample), std::end(kSample),
                       [](std::u32string_view line) { return line.size() == kSampleColumns; });
}
static_assert(SampleIsSquare());
static_assert(kSampleColumns * kCellWidth + 2 * kSampleBorder == kInnerWidth);

int CodeOf(char32_t character) {
    const LookRow* const row = platform::RowWith(kLooks, &LookRow::Character, character);
    return row == nullptr ? static_cast<int>(character) & 0xFF : row->Code;
}

const tools::Cell& CellOf(const Font& font, int code) {
    return font[static_cast<std::size_t>(code)];
}

void DrawText(Canvas& canvas, const Font& font, std::string_view text, int left, int top, Rgb ink,
              int scale = 1) {
    for (const char letter : text) {
        canvas.DrawCell(CellOf(font, static_cast<unsigned char>(letter)), left, top, ink, scale);
        left += kCellWidth * scale;
    }
}

void DrawTile(Canvas& canvas, const Font& font, int code, int left, int top) {
    constexpr int kDigitsWidth = 3 * kCellWidth / 2;
    constexpr int kGlyphLeft = kTileWidth - kTileGap - kCellWidth - 10;
    constexpr int kGlyphTop = (kTileHeight - kTileGap - kCellHeight) / 2;
    const Rgb tile = tools::IsGraphic(code) ? kGraphicTile : kTile;
    canvas.Paint({left, top, left + kTileWidth - kTileGap, top + kTileHeight - kTileGap}, tile);
    canvas.DrawCell(CellOf(font, code), left + kGlyphLeft, top + kGlyphTop, kInk);
    const std::string number = std::to_string(code);
    int digitLeft = left + 6 + kDigitsWidth - static_cast<int>(number.size()) * kCellWidth / 2;
    for (const char digit : number) {
        canvas.DrawSmallCell(CellOf(font, digit), digitLeft, top + 4, kNumberInk);
        digitLeft += kCellWidth / 2;
    }
}

void DrawGrid(Canvas& canvas, const Font& font, int top) {
    for (int code = 0; code < tools::kCellCodes; ++code) {
        DrawTile(canvas, font, code, kGridLeft + code % kTilesInRow * kTileWidth,
                 top + code / kTilesInRow * kTileHeight);
    }
}

void DrawSample(Canvas& canvas, const Font& font, int top) {
    canvas.Paint({kGridLeft, top, kGridLeft + kInnerWidth - kTileGap, top + kSampleHeight},
                 kScreen);
    int y = top + kSampleBorder;
    for (const std::u32string_view line : kSample) {
        int x = kMargin + kSampleBorder;
        for (const char32_t character : line) {
            const int code = CodeOf(character);
            const Rgb ink = tools::IsGraphic(code) ? kScreenGraphicInk : kScreenInk;
            canvas.DrawCell(CellOf(font, code), x, y, ink);
            x += kCellWidth;
        }
        y += kCellHeight;
    }
}

void DrawFont(Canvas& canvas, const Font& font, std::string_view name, int top) {
    DrawText(canvas, font, name, kGridLeft, top, kInk);
    top += kHeadingHeight;
    DrawGrid(canvas, font, top);
    top += kGridHeight + kSampleGap;
    DrawSample(canvas, font, top);
}

}  // namespace

int main(int count, char** words) {
    if (count != 3) {
        std::cerr << "make_font_chart <folder of the font files> <picture to write>.png\n";
        return EXIT_FAILURE;
    }
    const std::string folder = words[1];
    Canvas canvas(kWidth, kHeight, kPaper);
    int top = kMargin + kTitleHeight;
    for (const char* const file : kFontFiles) {
        const std::optional<Font> font = tools::LoadFont(folder, file);
        if (!font) return EXIT_FAILURE;
        if (file == kFontFiles[0]) DrawText(canvas, *font, "Korvandi", kGridLeft, kMargin, kInk, 2);
        DrawFont(canvas, *font, file, top);
        top += kFontHeight;
    }
    return canvas.WritePng(words[2]) ? EXIT_SUCCESS : EXIT_FAILURE;
}
