#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/support.h"
#include "tests/support/field_model.h"
#include "toolkit/core/utf8.h"

// The input is a field and the keys that are typed into it. In an orderly field a string and an
// index say what comes of every key; any other field stays inside its bounds.

namespace {

constexpr std::uint8_t kWindow = 0;
constexpr std::int64_t kColumns = 16;
constexpr std::int64_t kLines = 4;
constexpr std::int64_t kNumberKey = 30;
constexpr std::int64_t kPasteKey = 22;

std::int64_t AnyKey(fuzz::Input& input) {
    const std::uint8_t key = input.Byte();
    switch (key) {
        case 255:
            return 0x20AC;
        case 254:
            return -5;
        case 253:
            return 0xD800;
        default:
            return key;
    }
}

// The keys after the one that enters a code by number: digits, until something else ends them.
std::string Digits(fuzz::Input& input) {
    std::string digits;
    while (digits.size() < 3 && (digits.empty() || digits.back() != 'x')) {
        const std::int64_t digit = input.Between(0, 10);
        digits += digit == 10 ? 'x' : static_cast<char>('0' + digit);
    }
    return digits;
}

// A paste types the first line of what the pasteboard holds.
void TypePasted() {
    std::vector<std::int64_t> keys;
    while (t_EventPending) keys.push_back(t_NextEvent());
    for (const std::int64_t key : keys) {
        if (key != kPasteKey && key != kNumberKey) t_InputEdit(kWindow, key);
    }
}

void CheckBounds(const t_Window& w, std::int64_t most) {
    const std::int64_t length = toolkit::LengthInCharacters(w.InputString);
    fuzz::Check(w.InputCursorPos >= 0 && w.InputCursorPos <= length, "the cursor is in the field");
    fuzz::Check(length <= most, "a field keeps its maximum");
}

void CheckModel(const t_Window& w, const FieldModel& field) {
    const std::vector<char32_t> content = toolkit::Characters(w.InputString);
    fuzz::Check(std::u32string_view(content.data(), content.size()) == field.Content,
                "the field holds what was typed");
    fuzz::Check(w.InputCursorPos == static_cast<std::int64_t>(field.Cursor),
                "the cursor is where the keys took it");
    fuzz::Check(w.InputFinished == field.Finished, "return alone finishes");
}

// Everything outside of the field's place in its line.
std::string Surroundings(const t_Window& w) {
    std::string cells;
    for (std::int64_t line = 1; line <= kLines; ++line) {
        for (std::int64_t column = 1; column <= kColumns; ++column) {
            if (line == w.InputVpos && column >= w.InputHpos) continue;
            const toolkit::Cell cell = toolkit::CellAt(w, column, line);
            cells += {static_cast<char>(cell.Symbol), static_cast<char>(cell.Color)};
        }
    }
    return cells;
}

// A field that begins with one character at most, in a text area inside the grid.
void EditOrderly(fuzz::Input& input) {
    t_Window& w = t_Windows[kWindow];
    w.TextFirstColumn = input.Between(1, 6);
    w.TextLastColumn = input.Between(w.TextFirstColumn + 3, kColumns);
    w.TextVpos = input.Between(1, kLines);
    w.TextHpos = input.Between(w.TextFirstColumn, w.TextLastColumn - 2);
    FieldModel field;
    field.Mode = input.Between(0, 5);
    const std::int64_t maximum = input.Between(0, 20);
    const std::string preset = maximum > 0 && input.Between(0, 1) == 1 ? "7" : "";
    t_InputForm(kWindow, ">", preset, true, field.Mode, maximum);
    field.Most = static_cast<std::size_t>(
        std::clamp<std::int64_t>(w.TextLastColumn - w.InputHpos, 0, maximum));
    field.Content.assign(preset.begin(), preset.end());
    field.Cursor = preset.size();
    const std::string surroundings = Surroundings(w);
    while (!input.IsEmpty()) {
        const std::int64_t key = AnyKey(input);
        const std::string digits = key == kNumberKey ? Digits(input) : "";
        t_EventQueue.Clear();
        t_QueueKeys(digits);
        t_InputEdit(kWindow, key);
        field.Apply(key, digits);
        CheckModel(w, field);
        fuzz::Check(Surroundings(w) == surroundings, "only the field's place changes");
    }
}

// Any text in the field and the prompt, any area, any pasteboard.
void EditAnything(fuzz::Toolkit& toolkit, fuzz::Input& input) {
    t_Window& w = t_Windows[kWindow];
    for (auto* const field : {&w.TextFirstColumn, &w.TextLastColumn, &w.TextFirstLine,
                              &w.TextLastLine, &w.TextHpos, &w.TextVpos}) {
        *field = input.Between(-2, kColumns + 2);
    }
    const std::int64_t mode = input.Between(-1, 6);
    const std::int64_t maximum = input.Between(-2, 40);
    const auto text = [&] {
        const std::span<const std::uint8_t> bytes =
            input.Bytes(static_cast<std::size_t>(input.Between(0, 20)));
        return std::string(bytes.begin(), bytes.end());
    };
    const std::string prompt = text();
    const std::string preset = text();
    toolkit.Desktop.BoardText = text();
    t_InputForm(kWindow, prompt, preset, true, mode, maximum);
    while (!input.IsEmpty()) {
        const std::int64_t key = AnyKey(input);
        t_EventQueue.Clear();
        if (key == kNumberKey) t_QueueKeys(Digits(input));
        t_InputEdit(kWindow, key);
        if (key == kPasteKey) TypePasted();
        CheckBounds(w, std::max<std::int64_t>(maximum, 0));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const t_Font font = fuzz::GreyFont(2, 8);
    fuzz::Input input(data, size);
    fuzz::Toolkit& toolkit = fuzz::Toolkit::Fresh();
    t_InitWindow(kWindow, 8, false, 32, 32, 0, 0, font, true);
    fuzz::OpenNeighbour(1);
    const fuzz::Guards guards;
    if (input.Between(0, 1) == 0) {
        EditOrderly(input);
    } else {
        EditAnything(toolkit, input);
    }
    guards.ExpectUntouched();
    return 0;
}
