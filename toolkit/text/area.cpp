#include "toolkit/text/area.h"

#include "toolkit/text/glyph.h"
#include "toolkit/text/grid_span.h"
#include "toolkit/window/window.h"

using toolkit::Need;
using toolkit::UsableWindow;

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
