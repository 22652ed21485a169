#include "toolkit/text/lines.h"

#include "toolkit/text/cursor.h"
#include "toolkit/text/glyph.h"
#include "toolkit/window/window.h"

using toolkit::Need;
using toolkit::UsableWindow;

namespace {

constexpr std::uint8_t kRule = 156;

}  // namespace

void t_TextLine(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return;
    t_TextHline(window, w->TextHpos, w->TextLastColumn, w->TextVpos, kRule);
    t_Cr(window);
}

void t_TextHline(std::uint8_t window, std::int64_t firstColumn, std::int64_t lastColumn,
                 std::int64_t line, std::uint8_t code) {
    if (UsableWindow(__func__, window, Need::TextBlock) == nullptr) return;
    toolkit::FillCells(window, code, firstColumn, lastColumn, line);
}
