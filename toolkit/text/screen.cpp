#include "toolkit/text/screen.h"

#include "toolkit/core/text.h"
#include "toolkit/core/utf8.h"
#include "toolkit/text/grid_span.h"
#include "toolkit/window/window.h"

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

// Graphics characters and what stands for them.
struct LookAlikeRow {
    char32_t First;
    char32_t Last;
    char32_t Plain;
};

constexpr LookAlikeRow kLookAlikes[] = {
    {127, 127, '#'},     //
    {128, 128, '*'},     //
    {129, 129, '#'},     //
    {130, 130, '<'},     //
    {131, 131, '='},     //
    {132, 132, '>'},     //
    {133, 133, 'O'},     //
    {134, 137, '+'},     //
    {138, 139, '|'},     //
    {140, 141, '-'},     //
    {142, 153, '+'},     //
    {154, 155, '-'},     //
    {156, 157, '|'},     //
    {158, 158, '+'},     //
    {159, 159, '='},     //
    {160, 160, 0x02FD},  // ˽
};

char32_t LookAlike(char32_t c) {
    for (const LookAlikeRow& row : kLookAlikes) {
        if (c >= row.First && c <= row.Last) return row.Plain;
    }
    return c;
}

}  // namespace

std::string t_GetScreen(std::uint8_t window, std::string_view separator) {
    t_Window* const w = toolkit::UsableWindow(__func__, window, toolkit::Need::TextBlock);
    if (w == nullptr) return {};
    return t_TextToString(t_StringToText(TrimmedLines(GridText(*w, separator))));
}

std::string t_ExportText(std::string_view string) {
    std::string exported;
    for (const char32_t c : toolkit::Characters(string)) {
        toolkit::AppendCharacter(exported, LookAlike(c));
    }
    return exported;
}
