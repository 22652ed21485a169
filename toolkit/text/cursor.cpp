#include "toolkit/text/cursor.h"

#include "toolkit/core/codes.h"
#include "toolkit/core/numbers.h"
#include "toolkit/text/area.h"
#include "toolkit/text/glyph.h"
#include "toolkit/text/grid_span.h"
#include "toolkit/text/scroll.h"
#include "toolkit/window/window.h"

using toolkit::Minus;
using toolkit::Need;
using toolkit::Plus;
using toolkit::UsableWindow;

namespace {

void StepDown(std::uint8_t window, t_Window& w) {
    w.TextVpos = Plus(w.TextVpos, 1);
    if (w.TextVpos <= w.TextLastLine) return;
    t_ScrollUp(window);
    w.TextVpos = w.TextVpos - 1;
}

void StepUp(std::uint8_t window, t_Window& w) {
    w.TextVpos = Minus(w.TextVpos, 1);
    if (w.TextVpos >= w.TextFirstLine) return;
    t_ScrollDown(window);
    w.TextVpos = w.TextVpos + 1;
}

void ReturnCarriage(std::uint8_t window, t_Window& w) {
    w.TextHpos = w.TextFirstColumn;
    StepDown(window, w);
}

}  // namespace

void t_Htab(std::uint8_t window, std::int64_t n) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return;
    const std::int64_t column = Plus(w->TextFirstColumn, Minus(n, 1));
    if (n >= 1 && column <= w->TextWidth) w->TextHpos = column;
}

void t_Vtab(std::uint8_t window, std::int64_t n) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return;
    if (n >= 1 && n <= w->TextHeight) w->TextVpos = n;
}

void t_CursorRight(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w != nullptr) toolkit::AdvanceCursor(window, *w);
}

void t_CursorLeft(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return;
    w->TextHpos = Minus(w->TextHpos, 1);
    if (w->TextHpos >= w->TextFirstColumn) return;
    w->TextHpos = w->TextLastColumn;
    StepUp(window, *w);
}

void t_CursorDown(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w != nullptr) StepDown(window, *w);
}

void t_CursorUp(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w != nullptr) StepUp(window, *w);
}

void t_Cr(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w != nullptr) ReturnCarriage(window, *w);
}

void t_CursorHome(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return;
    w->TextHpos = w->TextFirstColumn;
    w->TextVpos = w->TextFirstLine;
}

void t_CursorEnd(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return;
    w->TextHpos = w->TextLastColumn;
    w->TextVpos = w->TextLastLine;
}

void t_CursorOn(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return;
    const std::int64_t before = w->TextCursorLevel;
    w->TextCursorLevel = toolkit::Plus(before, 1);
    if (before == 0) t_CursorDraw(window);
}

void t_CursorOff(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return;
    const std::int64_t before = w->TextCursorLevel;
    w->TextCursorLevel = toolkit::Minus(before, 1);
    if (before == 1) t_CursorDraw(window);
}

void t_CursorDraw(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w != nullptr) t_InvertRect(window, w->TextHpos, w->TextVpos, w->TextHpos, w->TextVpos);
}

void t_ClearEndOfLine(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return;
    toolkit::FillCells(window, toolkit::kBlank, w->TextHpos, w->TextLastColumn, w->TextVpos);
}

void t_ClearEndOfWindow(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return;
    t_ClearEndOfLine(window);
    const std::int64_t column = w->TextHpos;
    const std::int64_t line = w->TextVpos;
    if (line >= w->TextLastLine) return;
    const toolkit::CellArea below = toolkit::GridArea(*w, {w->TextFirstColumn, w->TextLastColumn},
                                                      {Plus(line, 1), w->TextLastLine});
    for (const std::int64_t y : below.Lines) {
        w->TextHpos = w->TextFirstColumn;
        w->TextVpos = y;
        t_ClearEndOfLine(window);
    }
    w->TextHpos = column;
    w->TextVpos = line;
}

void toolkit::AdvanceCursor(std::uint8_t window, t_Window& w) {
    w.TextHpos = Plus(w.TextHpos, 1);
    if (w.TextHpos > w.TextLastColumn) ReturnCarriage(window, w);
}
