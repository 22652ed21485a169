#include <array>
#include <cstddef>

#include "toolkit/core/output.h"
#include "toolkit/core/sounds.h"
#include "toolkit/core/utf8.h"
#include "toolkit/text/cursor.h"
#include "toolkit/text/print.h"
#include "toolkit/text/scroll.h"
#include "toolkit/window/window.h"

namespace {

using Action = void (*)(std::uint8_t window);

template <std::int64_t Mode>
void SetMode(std::uint8_t window) {
    t_DisplayMode(window, Mode);
}

void Bell(std::uint8_t /*window*/) {
    t_SysBeep();
}

void HomeAndClear(std::uint8_t window) {
    t_CursorHome(window);
    t_ClearEndOfWindow(window);
}

void ToFirstColumn(std::uint8_t window) {
    t_Htab(window, 1);
}

void ClearLine(std::uint8_t window) {
    ToFirstColumn(window);
    t_ClearEndOfLine(window);
}

struct ControlRow {
    std::uint8_t Code;
    Action Run;
};

constexpr ControlRow kControlRows[] = {
    {7, Bell},                 // BEL
    {8, t_CursorLeft},         // BS, also the Left arrow
    {10, t_CursorDown},        // LF, also the Down arrow
    {11, t_ClearEndOfWindow},  // VT
    {12, HomeAndClear},        // FF
    {13, t_Cr},                // CR
    {14, t_Normal},            // SO
    {15, t_Inverse},           // SI
    {17, t_Reverse},           // DC1
    {18, ToFirstColumn},       // DC2
    {19, SetMode<0>},          // DC3
    {20, SetMode<1>},          // DC4
    {22, t_ScrollDown},        // SYN
    {23, t_ScrollUp},          // ETB
    {25, t_CursorHome},        // EM
    {26, ClearLine},           // SUB
    {27, SetMode<99>},         // ESC
    {28, t_CursorRight},       // FS
    {29, t_ClearEndOfLine},    // GS
    {30, t_CursorUp},          // RS
    {31, SetMode<2>},          // US
};

// One slot per code from 0 to 31; an empty slot is a code that does nothing.
template <std::size_t Rows>
consteval std::array<Action, 32> ByCode(const ControlRow (&rows)[Rows]) {
    std::array<Action, 32> table{};
    for (const ControlRow& row : rows) {
        if (table.at(row.Code) != nullptr) throw "this control code has two rows";
        table.at(row.Code) = row.Run;
    }
    return table;
}

constexpr std::array<Action, 32> kControls = ByCode(kControlRows);

}  // namespace

void t_PrintControl(std::uint8_t window, std::uint8_t code) {
    t_Window* const w = toolkit::GraphicWindow(__func__, window);
    if (w == nullptr) return;
    const std::int64_t redirect = w->TextRedirectOutput;
    if (redirect == toolkit::TextOutput::ToStandardOutput)
        return toolkit::PrintPiece(toolkit::CharacterString(code));
    if (redirect != toolkit::TextOutput::ToWindow) return;
    if (!toolkit::IsUsable(*w, toolkit::Need::TextBlock)) {
        toolkit::PrintNotInitialized(__func__, window);
        return;
    }
    if (code < kControls.size() && kControls[code] != nullptr) kControls[code](window);
}
