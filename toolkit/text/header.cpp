#include "toolkit/text/header.h"

#include <algorithm>

#include "toolkit/core/numbers.h"
#include "toolkit/core/strings.h"
#include "toolkit/core/utf8.h"
#include "toolkit/text/area.h"
#include "toolkit/text/cursor.h"
#include "toolkit/text/glyph.h"
#include "toolkit/text/print.h"
#include "toolkit/window/placement.h"
#include "toolkit/window/window.h"

using toolkit::Need;
using toolkit::UsableWindow;

namespace {

constexpr std::uint8_t kRule = 156;
constexpr std::int64_t kAreaColumns = 4;  // codes of t_WindowPos
constexpr std::int64_t kAreaLines = 5;

}  // namespace

void t_CursorDraw(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w != nullptr) t_InvertRect(window, w->TextHpos, w->TextVpos, w->TextHpos, w->TextVpos);
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
    const std::string line = t_HeaderLine(title, credit, t_WindowPos(window, kAreaColumns));
    const std::int64_t length = toolkit::LengthInCharacters(line);
    t_Print(window, toolkit::Substring(line, 0, length - 1));
    // The last character leaves the cursor where it is, so that a full line does not wrap.
    const auto last = static_cast<std::uint8_t>(t_CharCode(t_MidChar(line, length)) & 0xFF);
    t_PrintSymbol(window, last, color, w->TextHpos, w->TextVpos);
    t_WindowPos(window, kAreaLines) < 2 ? t_Htab(window, 1) : t_Cr(window);
}

void t_TextHline(std::uint8_t window, std::int64_t firstColumn, std::int64_t lastColumn,
                 std::int64_t line, std::uint8_t code) {
    if (UsableWindow(__func__, window, Need::TextBlock) == nullptr) return;
    toolkit::FillCells(window, code, firstColumn, lastColumn, line);
}

void t_TextLine(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return;
    t_TextHline(window, w->TextHpos, w->TextLastColumn, w->TextVpos, kRule);
    t_Cr(window);
}

void t_RedirectOutput(std::uint8_t window, std::int64_t mode) {
    t_Window* const w = UsableWindow(__func__, window, Need::SetUp);
    if (w != nullptr) w->TextRedirectOutput = mode;
}
