#include <algorithm>

#include "toolkit/core/codes.h"
#include "toolkit/core/numbers.h"
#include "toolkit/text/cursor.h"
#include "toolkit/text/print.h"
#include "toolkit/window/placement.h"
#include "toolkit/window/window.h"

using toolkit::Need;

namespace {

constexpr std::int64_t kEscapeMode = 99;
constexpr std::int64_t kNothingToDraw = -1;
constexpr std::int64_t kMarkColor = 1;

// Modes that move a range of character codes elsewhere.
struct ShiftRow {
    std::int64_t Mode;
    std::int64_t First;
    std::int64_t Last;
    std::int64_t Distance;
};

constexpr ShiftRow kShifts[] = {
    {1, 32, 127, 128},  //
    {2, 64, 95, -64},   //
    {2, 96, 127, 32},   //
    {3, 0, 31, 64},     //
    {4, 0, 31, 64},     //
};

// The area's last stop as t_Htab counts, by the width of the grid.
std::int64_t LastStop(const t_Window& w) {
    return toolkit::Plus(toolkit::Minus(w.TextWidth, w.TextFirstColumn), 1);
}

void ToLastStop(std::uint8_t window, t_Window& w, std::int64_t /*argument*/) {
    t_Htab(window, LastStop(w));
}

void ToEnd(std::uint8_t window, t_Window& /*w*/, std::int64_t /*argument*/) {
    t_CursorEnd(window);
}

// To the next stop of a grid of `columns` columns, or to the next line where there is none.
void ToNextStop(std::uint8_t window, t_Window& w, std::int64_t columns) {
    const std::int64_t stop = toolkit::Plus(w.TextHpos / columns * columns, columns + 1);
    if (stop > LastStop(w)) {
        t_ClearEndOfLine(window);
        t_Cr(window);
    } else {
        t_PrintTab(window, stop, toolkit::kBlank);
    }
}

void Border(std::uint8_t window, t_Window& /*w*/, std::int64_t color) {
    t_ColorBorder(window, color);
}

// Escape commands: codes First to Last run Run with Argument + (code - First).
struct CommandRow {
    std::int64_t First;
    std::int64_t Last;
    void (*Run)(std::uint8_t window, t_Window& w, std::int64_t argument);
    std::int64_t Argument;
};

constexpr CommandRow kCommands[] = {
    {101, 101, ToEnd, 0},        // e
    {102, 102, ToLastStop, 0},   // f
    {105, 105, ToNextStop, 10},  // i
    {106, 106, ToNextStop, 20},  // j
    {107, 107, ToNextStop, 40},  // k
    {110, 127, Border, 0},       // n and on
};

constexpr std::int64_t kFirstForeground = 64;  // the at sign
constexpr std::int64_t kFirstBackground = 80;  // P
constexpr std::int64_t kColorsEnd = 96;

// The code to draw in the escape mode, with the colour that the command leaves.
t_DisplayCode Escape(std::uint8_t window, t_Window& w, std::int64_t k, t_DisplayCode state) {
    if (k >= kFirstForeground && k < kFirstBackground) {
        state.Color = static_cast<std::uint8_t>((k - kFirstForeground) << 4 | (state.Color & 0x0F));
    } else if (k >= kFirstBackground && k < kColorsEnd) {
        state.Color = static_cast<std::uint8_t>((k - kFirstBackground) | (state.Color & 0xF0));
    } else {
        const auto* const row =
            std::find_if(std::begin(kCommands), std::end(kCommands),
                         [k](const CommandRow& r) { return k >= r.First && k <= r.Last; });
        if (row == std::end(kCommands)) return {k, state.Inverse, state.Color};
        w.TextDisplayMode = 0;
        row->Run(window, w, row->Argument + k - row->First);
    }
    w.TextDisplayMode = 0;
    return {kNothingToDraw, state.Inverse, state.Color};
}

std::int64_t Shifted(std::int64_t mode, std::int64_t k) {
    for (const ShiftRow& row : kShifts) {
        if (row.Mode == mode && k >= row.First && k <= row.Last) return k + row.Distance;
    }
    return k;
}

}  // namespace

t_DisplayCode t_ApplyDisplayMode(std::uint8_t window, std::int64_t code) {
    t_Window* const w = toolkit::UsableWindow(__func__, window, Need::TextBlock);
    return w == nullptr ? t_DisplayCode() : toolkit::ThroughDisplayMode(window, *w, code);
}

t_DisplayCode toolkit::ThroughDisplayMode(std::uint8_t window, t_Window& w, std::int64_t code) {
    const t_DisplayCode state{code, w.TextInverse, w.TextColor};
    const std::int64_t mode = w.TextDisplayMode;
    if (mode == kEscapeMode) return Escape(window, w, code, state);
    const std::int64_t shown = Shifted(mode, code);
    if (shown != code && mode == 3) t_Inverse(window);
    if (shown != code && mode == 4) t_Color(window, kMarkColor);
    return {shown, state.Inverse, state.Color};
}
