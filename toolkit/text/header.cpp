#include "toolkit/text/header.h"

#include <algorithm>

#include "toolkit/core/numbers.h"
#include "toolkit/core/strings.h"
#include "toolkit/core/utf8.h"
#include "toolkit/text/cursor.h"
#include "toolkit/text/glyph.h"
#include "toolkit/text/print.h"
#include "toolkit/window/placement.h"
#include "toolkit/window/window.h"

using toolkit::Need;
using toolkit::PlaceCode;
using toolkit::UsableWindow;

std::string t_HeaderLine(std::string_view title, std::string_view credit, std::int64_t width) {
    const std::int64_t gap = toolkit::Minus(
        width, toolkit::LengthInCharacters(title) + toolkit::LengthInCharacters(credit));
    const std::string both = std::string(title) + t_Spaces(gap) + std::string(credit);
    return std::string(toolkit::Substring(both, 0, std::max<std::int64_t>(width, 0)));
}

void t_Header(std::uint8_t window, std::string_view title, std::string_view credit) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return;
    const std::uint8_t color = w->TextColor;
    const std::string line = t_HeaderLine(title, credit, t_WindowPos(window, PlaceCode::Columns));
    const std::int64_t length = toolkit::LengthInCharacters(line);
    t_Print(window, toolkit::Substring(line, 0, length - 1));
    // The last character leaves the cursor where it is, so that a full line does not wrap.
    const auto last = static_cast<std::uint8_t>(t_CharCode(t_MidChar(line, length)) & 0xFF);
    t_PrintSymbol(window, last, color, w->TextHpos, w->TextVpos);
    t_WindowPos(window, PlaceCode::Lines) < 2 ? t_Htab(window, 1) : t_Cr(window);
}
