#include "toolkit/text/area.h"

#include "toolkit/core/palette.h"
#include "toolkit/core/text.h"
#include "toolkit/core/utf8.h"
#include "toolkit/text/glyph.h"
#include "toolkit/text/grid_span.h"
#include "toolkit/window/window.h"

using toolkit::Need;
using toolkit::UsableWindow;

namespace {

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
    w->TextColor = static_cast<std::uint8_t>(toolkit::Modulo16(color) << 4 | (w->TextColor & 0x0F));
    w->RGBColor = t_PaletteColor(toolkit::Modulo16(color));
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
