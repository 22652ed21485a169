#include "toolkit/input/line_editor.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "platform/platform.h"
#include "platform/search.h"
#include "toolkit/core/codes.h"
#include "toolkit/core/escapes.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/strings.h"
#include "toolkit/core/tables.h"
#include "toolkit/core/text.h"
#include "toolkit/core/utf8.h"
#include "toolkit/events/event.h"
#include "toolkit/input/keyboard.h"
#include "toolkit/input/pasted_keys.h"
#include "toolkit/text/cursor.h"
#include "toolkit/text/print.h"
#include "toolkit/window/window.h"

using toolkit::Need;
using toolkit::UsableWindow;

namespace {

using toolkit::kBackspace;
using toolkit::kBlank;
using toolkit::kCarriageReturn;
using toolkit::kEscape;

constexpr std::int64_t kByNumber = 30;
constexpr std::int64_t kPlaceCursor = 31;
constexpr std::int64_t kMarkedMode = 4;  // display mode of prompts and edited fields
constexpr std::int64_t kFreeMode = 1;    // input mode that takes control characters by number

// The field's text around the input cursor.
std::string Before(const t_Window& w, std::int64_t position) {
    return std::string(toolkit::Substring(w.InputString, 0, position));
}
std::string From(const t_Window& w, std::int64_t position) {
    return t_MidFrom(w.InputString, toolkit::Plus(position, 1));
}
std::int64_t Length(const t_Window& w) {
    return toolkit::LengthInCharacters(w.InputString);
}

// The character just left of a position, as a code.
std::int64_t CodeLeftOf(const t_Window& w, std::int64_t position) {
    return t_CharCode(t_MidChar(w.InputString, position));
}

void PlaceCursor(t_Window& w) {
    w.TextHpos = toolkit::Plus(w.InputHpos, w.InputCursorPos);
}

void PrintMarked(std::uint8_t window, t_Window& w, std::string_view text) {
    w.TextDisplayMode = kMarkedMode;
    t_Print(window, text);
    w.TextDisplayMode = 0;
}

void Redraw(std::uint8_t window, t_Window& w, std::string_view text) {
    w.TextHpos = w.InputHpos;
    PrintMarked(window, w, text);
}

void ClampCursor(t_Window& w) {
    w.InputCursorPos = std::clamp<std::int64_t>(w.InputCursorPos, 0, Length(w));
}

// The actions of the key table.

void RedrawAll(std::uint8_t window, t_Window& w) {
    Redraw(window, w, w.InputString);
    PlaceCursor(w);
}

void ToStart(std::uint8_t /*window*/, t_Window& w) {
    w.InputCursorPos = 0;
}
void ToEnd(std::uint8_t /*window*/, t_Window& w) {
    w.InputCursorPos = Length(w);
}
void ToLeft(std::uint8_t /*window*/, t_Window& w) {
    w.InputCursorPos = w.InputCursorPos - 1;
}
void ToRight(std::uint8_t /*window*/, t_Window& w) {
    w.InputCursorPos = w.InputCursorPos + 1;
}

// Moves the cursor by one character, if there is one, and on in the same direction to the next
// place behind a blank or to the end of the field.
void MoveByWord(t_Window& w, std::int64_t step) {
    const std::vector<char32_t> field = toolkit::Characters(w.InputString);
    const std::int64_t last = step > 0 ? std::ssize(field) : 0;
    std::int64_t position = std::clamp<std::int64_t>(w.InputCursorPos, 0, std::ssize(field));
    if (position != last) position += step;
    while (position != last && field[static_cast<std::size_t>(position - 1)] != kBlank) {
        position += step;
    }
    w.InputCursorPos = position;
}

void WordRight(std::uint8_t /*window*/, t_Window& w) {
    MoveByWord(w, 1);
}
void WordLeft(std::uint8_t /*window*/, t_Window& w) {
    MoveByWord(w, -1);
}

// Deletes the character at a position; nothing where there is none.
void DeleteAt(std::uint8_t window, t_Window& w, std::int64_t position) {
    if (position < 0 || position >= Length(w)) return;
    w.InputString = Before(w, position) + From(w, position + 1);
    Redraw(window, w, w.InputString + " ");
}

void DeleteRight(std::uint8_t window, t_Window& w) {
    DeleteAt(window, w, w.InputCursorPos);
}

void DeleteLeft(std::uint8_t window, t_Window& w) {
    DeleteAt(window, w, w.InputCursorPos - 1);
    ToLeft(window, w);
}

void DeleteToStart(std::uint8_t window, t_Window& w) {
    const std::int64_t before = Length(w);
    w.InputString = From(w, w.InputCursorPos);
    w.InputCursorPos = 0;
    Redraw(window, w, toolkit::Substring(w.InputString + t_Spaces(before), 0, before));
}

void Clear(std::uint8_t window, t_Window& w) {
    const std::int64_t before = Length(w);
    w.InputString.clear();
    w.InputCursorPos = 0;
    w.TextHpos = w.InputHpos;
    t_PrintSpc(window, before);
}

void Cancel(std::uint8_t window, t_Window& w) {
    const std::int64_t before = Length(w);
    w.InputString.clear();
    w.InputFinished = false;
    w.TextHpos = w.InputHpos;
    t_Print(window, t_StringToText(std::string(static_cast<std::size_t>(before), ' ')));
}

void Finish(std::uint8_t /*window*/, t_Window& w) {
    w.InputFinished = true;
}

void Copy(std::uint8_t /*window*/, t_Window& w) {
    const std::string text = t_DecodeEscapes(w.InputString);
    platform::RunOnMain([&] {
        platform::Current().Pasteboard->Clear();
        platform::Current().Pasteboard->SetText(text);
    });
}

// Whether a key leaves the field, or reads what comes after it by itself.
bool LeavesOrReads(const t_Event& event) {
    return event.Value == kCarriageReturn || event.Value == kEscape || event.Value == kByNumber;
}

// Queues what the field can use; all of it where keys that wait already may send it elsewhere.
void Paste(std::uint8_t /*window*/, t_Window& w) {
    const auto text = platform::AskMain([] { return platform::Current().Pasteboard->Text(); });
    const std::string line = t_FirstLine(t_EncodeEscapes(text.value_or(std::string())));
    t_QueueKeys(t_EventQueue.Any(LeavesOrReads) ? line : toolkit::PastedKeys(w, line));
}

// The digit that a key stands for; -1 for other keys.
std::int64_t Digit(std::int64_t code) {
    return toolkit::IsDigit(code) ? code - '0' : -1;
}

std::int64_t NextDigit(std::uint8_t window) {
    return Digit(t_CharCode(t_WaitKey(window)));
}

// A character by its decimal code of one to three digits; the key that ends it is used up.
void EnterByNumber(std::uint8_t window, t_Window& w) {
    constexpr int kMostDigits = 3;
    std::int64_t code = NextDigit(window);
    if (code < 0) return;
    for (int digits = 1; digits < kMostDigits; ++digits) {
        const std::int64_t next = NextDigit(window);
        if (next < 0) break;
        code = code * 10 + next;
    }
    const std::int64_t lowest = w.InputMode == kFreeMode ? 1 : kBlank;
    if (code >= lowest && code <= 255) t_InputInsert(window, code);
}

void JustPlaceCursor(std::uint8_t /*window*/, t_Window& w) {
    PlaceCursor(w);
}

using Action = void (*)(std::uint8_t window, t_Window& w);

struct KeyRow {
    std::int64_t Code;
    Action Run;
};

constexpr KeyRow kKeys[] = {
    {0, RedrawAll},                   // NUL
    {1, ToStart},                     // Ctrl-A
    {2, ToStart},                     // Ctrl-B, Home
    {3, ToEnd},                       // Ctrl-C, Page Down
    {4, WordRight},                   // Ctrl-D
    {5, ToEnd},                       // Ctrl-E, End
    {6, ToEnd},                       // Ctrl-F
    {7, DeleteRight},                 // Ctrl-G, Forward Delete
    {8, ToLeft},                      // Ctrl-H, Left arrow
    {10, ToEnd},                      // Ctrl-J, Down arrow
    {11, ToStart},                    // Ctrl-K, Up arrow
    {12, Copy},                       // Ctrl-L
    {kCarriageReturn, Finish},        // Return
    {18, ToStart},                    // Ctrl-R, Page Up
    {19, WordLeft},                   // Ctrl-S
    {21, ToRight},                    // Ctrl-U, Right arrow
    {22, Paste},                      // Ctrl-V
    {24, DeleteToStart},              // Ctrl-X
    {26, Clear},                      // Ctrl-Z
    {kEscape, Cancel},                // Escape
    {kByNumber, EnterByNumber},       // Ctrl-^
    {kPlaceCursor, JustPlaceCursor},  // Ctrl-_
    {kBackspace, DeleteLeft},         // Backspace
};

// What an input mode makes of a character: its code, or 0 to refuse it.
constexpr std::int64_t kRefused = 0;

bool Holds(const t_Window& w, char c) {
    return w.InputString.find(c) != std::string::npos;
}

std::int64_t WholeNumber(const t_Window& w, std::int64_t code) {
    return Digit(code) >= 0 || (code == '-' && w.InputCursorPos == 0) ? code : kRefused;
}

std::int64_t DecimalNumber(const t_Window& w, std::int64_t typed) {
    const std::int64_t code = t_LowerCode(typed);
    if (Digit(code) >= 0) return code;
    if (code == ',' || code == '.') return Holds(w, ',') ? kRefused : ',';
    if (code == 'e') return Holds(w, 'e') ? kRefused : code;
    const bool minusFits = w.InputCursorPos == 0 || CodeLeftOf(w, w.InputCursorPos) == 'e';
    return code == '-' && minusFits ? code : kRefused;
}

std::int64_t NumberRange(const t_Window& w, std::int64_t code) {
    if (Digit(code) >= 0) return code;
    return code == '-' && w.InputCursorPos != 0 && !Holds(w, '-') ? code : kRefused;
}

std::int64_t Accepted(const t_Window& w, std::int64_t code) {
    switch (w.InputMode) {
        case 2:
            return WholeNumber(w, code);
        case 3:
            return DecimalNumber(w, code);
        case 4:
            return NumberRange(w, code);
        default:
            return code;
    }
}

bool HasRoom(const t_Window& w) {
    const std::int64_t length = Length(w);
    return toolkit::Plus(w.InputHpos, length) < w.TextLastColumn && length < w.InputMaxCharacters;
}

void SetUpField(t_Window& w, std::string_view field, std::int64_t mode, std::int64_t maximum) {
    w.InputHpos = w.TextHpos;
    w.InputVpos = w.TextVpos;
    w.InputMode = mode;
    w.InputMaxCharacters = maximum;
    w.InputString = std::string(toolkit::Substring(field, 0, maximum));
    w.InputFinished = false;
    w.InputCursorPos = Length(w);
}

}  // namespace

std::string t_InputForm(std::uint8_t window, std::string_view prompt, std::string_view field,
                        bool showOnly, std::int64_t inputMode, std::int64_t maximum) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return {};
    PrintMarked(window, *w, prompt);
    SetUpField(*w, field, inputMode, maximum);
    t_Print(window, w->InputString);
    if (showOnly) return w->InputString;
    std::int64_t code = 0;
    do {
        t_InputEdit(window, kPlaceCursor);
        code = t_CharCode(t_WaitKey(window));
        t_InputEdit(window, code);
    } while (code != kCarriageReturn && code != kEscape);
    t_Cr(window);
    return w->InputString;
}

void t_InputEdit(std::uint8_t window, std::int64_t key) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return;
    ClampCursor(*w);
    w->TextVpos = w->InputVpos;
    PlaceCursor(*w);
    const auto* const row = platform::RowWith(kKeys, &KeyRow::Code, key);
    if (row != nullptr) {
        row->Run(window, *w);
    } else if (key >= kBlank) {
        t_InputInsert(window, key);
    }
    ClampCursor(*w);
}

void t_InputInsert(std::uint8_t window, std::int64_t code) {
    t_Window* const w = UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr || !HasRoom(*w)) return;
    const std::int64_t accepted = Accepted(*w, code);
    if (accepted == kRefused) return;
    ClampCursor(*w);
    const std::string character = accepted < 0 ? std::string() : toolkit::CharacterString(accepted);
    w->InputString = Before(*w, w->InputCursorPos) + character + From(*w, w->InputCursorPos);
    w->InputCursorPos = w->InputCursorPos + 1;
    Redraw(window, *w, w->InputString);
}

std::int64_t t_InputYesNo(std::uint8_t window, std::int64_t defaultAnswer, bool echo) {
    if (echo) t_Print(window, " \x08");
    const std::int64_t key = t_CharCode(t_WaitKey(window));
    const std::int64_t code = key < 256 ? t_UpperCaseTable[static_cast<std::size_t>(key)] : key;
    std::int64_t answer = -2;
    switch (code) {
        case kCarriageReturn:
        case kBlank:
            answer = defaultAnswer;
            break;
        case kEscape:
            answer = -1;
            break;
        case 'J':
        case 'Y':
            answer = 1;
            break;
        case 'N':
            answer = 0;
            break;
        default:
            break;
    }
    if (echo) t_Print(window, answer == 1 ? "J" : "N");
    return answer;
}
