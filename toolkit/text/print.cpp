#include "toolkit/text/print.h"

#include <optional>

#include "toolkit/core/clock.h"
#include "toolkit/core/codes.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/output.h"
#include "toolkit/core/palette.h"
#include "toolkit/core/utf8.h"
#include "toolkit/events/event.h"
#include "toolkit/events/menu.h"
#include "toolkit/text/cursor.h"
#include "toolkit/text/glyph.h"
#include "toolkit/window/window.h"

using toolkit::Need;
using toolkit::UsableWindow;

namespace {

using toolkit::kBlank;
using toolkit::kCarriageReturn;
using toolkit::kControlS;

constexpr std::int64_t kFirstPrintable = kBlank;
constexpr std::int64_t kFirstShowingMode = 3;  // from here on control codes are shown, not obeyed
constexpr std::uint8_t kQuestionMark = 63;
constexpr std::int64_t kMarkColor = 1;

void DrawAtCursor(std::uint8_t window, t_Window& w, std::uint8_t code) {
    t_PrintSymbol(window, code, w.TextColor, w.TextHpos, w.TextVpos);
    toolkit::AdvanceCursor(window, w);
}

// The window was checked; of the operations called for a character only t_PrintSymbol checks again.
void PrintThroughMode(std::uint8_t window, t_Window& w, std::int64_t k, bool markUnknown) {
    const t_DisplayCode code = toolkit::ThroughDisplayMode(window, w, k);
    if (code.Code >= 0 && code.Code <= 255) {
        DrawAtCursor(window, w, static_cast<std::uint8_t>(code.Code));
    } else if (code.Code > 255 && markUnknown) {
        if (w.TextDisplayMode == 4) t_Color(window, kMarkColor);
        DrawAtCursor(window, w, kQuestionMark);
    }
    w.TextInverse = code.Inverse;
    w.TextColor = code.Color;
}

void PrintCode(std::uint8_t window, t_Window& w, std::int64_t k) {
    if (k >= kFirstPrintable || w.TextDisplayMode >= kFirstShowingMode) {
        PrintThroughMode(window, w, k, true);
        return;
    }
    if (k == kCarriageReturn) t_PrintPause(kControlS, true);
    t_PrintControl(window, static_cast<std::uint8_t>(k));
}

// Prints the codes that `next` gives, one call each, until it gives none.
template <typename Next>
void PrintAll(std::uint8_t window, Next next) {
    t_Window* const w = UsableWindow("t_Print", window, Need::TextBlock);
    if (w == nullptr) return;
    if (w->Font.Data.empty()) {
        toolkit::PrintLine("t_Print: Window #", window, " has no text font.");
        return;
    }
    while (const std::optional<std::int64_t> k = next()) PrintCode(window, *w, *k);
    t_PrintPause(kControlS, true);
}

void PrintRepeatedly(std::uint8_t window, t_Window& w, std::uint8_t code, std::int64_t count) {
    for (; count > 0; --count) PrintThroughMode(window, w, code, false);
}

}  // namespace

void t_Print(std::uint8_t window, std::string_view string) {
    PrintAll(window, [string]() mutable -> std::optional<std::int64_t> {
        if (string.empty()) return std::nullopt;
        const toolkit::Decoded next = toolkit::DecodeFirst(string);
        string.remove_prefix(next.Length);
        return static_cast<std::int64_t>(next.Code);
    });
}

void t_Print(std::uint8_t window, const Text& text) {
    PrintAll(window,
             [at = text.Elements.begin(),
              end = text.Elements.end()]() mutable -> std::optional<std::int64_t> {
                 if (at == end) return std::nullopt;
                 return *at++;
             });
}

void t_PrintChar(std::uint8_t window, std::uint8_t code) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w != nullptr) PrintThroughMode(window, *w, code, false);
}

void t_PrintTab(std::uint8_t window, std::int64_t column, std::uint8_t fill) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w != nullptr) PrintRepeatedly(window, *w, fill, toolkit::Minus(column, w->TextHpos));
}

void t_PrintSpc(std::uint8_t window, std::int64_t count) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w != nullptr) PrintRepeatedly(window, *w, kBlank, count);
}

void t_DisplayMode(std::uint8_t window, std::int64_t mode) {
    t_Window* const w = UsableWindow(__func__, window, Need::SetUp);
    if (w != nullptr) w->TextDisplayMode = mode;
}

void t_Normal(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::SetUp);
    if (w != nullptr) w->TextInverse = false;
}

void t_Inverse(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::SetUp);
    if (w != nullptr) w->TextInverse = true;
}

void t_Reverse(std::uint8_t window) {
    t_Window* const w = UsableWindow(__func__, window, Need::SetUp);
    if (w != nullptr) w->TextInverse = !w->TextInverse;
}

void t_Color(std::uint8_t window, std::int64_t color) {
    t_Window* const w = UsableWindow(__func__, window, Need::SetUp);
    if (w == nullptr) return;
    w->TextColor = static_cast<std::uint8_t>(toolkit::Modulo16(color) << 4 | (w->TextColor & 0x0F));
    w->RGBColor = t_PaletteColor(toolkit::Modulo16(color));
}

void t_RedirectOutput(std::uint8_t window, std::int64_t mode) {
    t_Window* const w = UsableWindow(__func__, window, Need::SetUp);
    if (w != nullptr) w->TextRedirectOutput = mode;
}

bool t_PrintPause(std::int64_t key, bool wait) {
    const std::int64_t choices = t_MenuEventQueue.size();
    if (!t_EventPending ||
        !t_EventQueue.DropAllIfNewest([key](const t_Event& event) { return event.Value == key; })) {
        return false;
    }
    if (!wait) return true;
    while (!t_EventPending && t_MenuEventQueue.size() == choices) {
        toolkit::WaitMilliseconds(10);
    }
    if (t_EventPending) t_NextEvent();
    return true;
}
