#include <algorithm>
#include <string>

#include "tests/support/fixture.h"
#include "tests/support/random.h"
#include "toolkit/core/utf8.h"

// Random keys against a model of the field: a string, an index and the rules of the input modes.

namespace {

using String = std::u32string;

using LineEditorModel = WindowTest;

struct Field {
    std::int64_t Mode = 0;
    std::size_t Most = 0;  // characters, by the maximum and by the room in the line
    String Content;
    std::size_t Cursor = 0;
    bool Finished = false;
    String Typed;  // what the person types after the key

    void Insert(std::int64_t code) {
        if (Content.size() >= Most || code == 0) return;
        char32_t c = toolkit::IsScalar(code) ? static_cast<char32_t>(code) : 0;
        if (Mode == 3 && c == 'E') c = 'e';
        if (Mode == 3 && c == '.') c = ',';
        const bool digit = c >= '0' && c <= '9';
        const bool first = Content.find(c) == String::npos;
        const bool atStart = Cursor == 0;
        const bool afterE = !atStart && Content[Cursor - 1] == 'e';
        if (Mode == 2 && !digit && !(c == '-' && atStart)) return;
        if (Mode == 3 && !digit && !((c == ',' || c == 'e') && first) &&
            !(c == '-' && (atStart || afterE))) {
            return;
        }
        if (Mode == 4 && !digit && !(c == '-' && !atStart && first)) return;
        Content.insert(Cursor++, 1, c);
    }

    void InsertByNumber() {
        std::int64_t code = 0;
        for (const char32_t c : Typed) {
            const bool digit = c >= '0' && c <= '9';
            if (!digit) break;
            code = code * 10 + c - '0';
        }
        if (code >= (Mode == 1 ? 1 : 32) && code <= 255) Insert(code);
    }

    void Apply(std::int64_t key) {
        const auto is = [key](std::initializer_list<std::int64_t> keys) {
            return std::ranges::find(keys, key) != keys.end();
        };
        const std::size_t end = Content.size();
        if (is({1, 2, 11, 18})) Cursor = 0;
        if (is({3, 5, 6, 10})) Cursor = end;
        if (key == 8 && Cursor > 0) --Cursor;
        if (key == 21 && Cursor < end) ++Cursor;
        if (key == 4) {  // behind the next blank
            Cursor = std::min(Content.find(' ', Cursor < end ? Cursor : end), end - 1) + 1;
        }
        if (key == 19) {  // behind the blank before
            const std::size_t blank = Cursor < 2 ? String::npos : Content.rfind(' ', Cursor - 2);
            Cursor = blank == String::npos ? 0 : blank + 1;
        }
        if (key == 7 && Cursor < end) Content.erase(Cursor, 1);
        if (key == 127 && Cursor > 0) Content.erase(--Cursor, 1);
        if (key == 24) Content.erase(0, Cursor);
        if (is({26, 27})) Content.clear();
        if (is({24, 26, 27})) Cursor = 0;
        if (key == 13) Finished = true;
        if (key == 27) Finished = false;
        if (key == 30) InsertByNumber();
        if (key >= 32 && key != 127) Insert(key);
    }
};

std::int64_t AnyKey(Random& random) {
    constexpr std::int64_t kEditing[] = {1, 3, 4, 4, 7, 8, 8, 19, 19, 21, 24, 30, 127, 127};
    constexpr std::int64_t kTyped[] = {'-', '-', ',', '.', 'e', 'E', ' ', ' ', 'x', 0x20AC, 0xD800};
    const std::int64_t kind = random.Between(0, 9);
    if (kind < 3) return kEditing[random.Between(0, std::ssize(kEditing) - 1)];
    if (kind < 5) return kTyped[random.Between(0, std::ssize(kTyped) - 1)];
    return kind < 8 ? random.Between('0', '9') : random.Between(-3, 300);
}

// How a character of the field looks in ScreenText.
char Shown(char32_t c) {
    if (c > 255) return '?';
    return c < 32 ? static_cast<char>(c + 64) : c < 127 ? static_cast<char>(c) : '.';
}

String Decoded(std::string_view text) {
    const std::vector<char32_t> characters = toolkit::Characters(text);
    return {characters.begin(), characters.end()};
}

}  // namespace

TEST_F(LineEditorModel, AgreesAfterEveryKey) {
    Random random;
    Open(0, 24, 20, 3);
    t_Window& w = t_Windows[0];
    for (int sequence = 0; sequence < 3000; ++sequence) {
        w.TextFirstColumn = random.Between(1, 6);
        w.TextLastColumn = random.Between(w.TextFirstColumn + 3, 20);
        w.TextVpos = random.Between(1, 3);
        w.TextHpos = random.Between(w.TextFirstColumn, w.TextLastColumn - 2);
        w.TextColor = random.Byte();
        t_ClearEndOfLine(0);
        const std::uint8_t color = w.TextColor;
        const std::int64_t maximum = random.Between(0, 20);
        Field field;
        field.Mode = random.Between(0, 4);
        field.Content = random.Coin() ? U"" : U"7 ";
        field.Content.resize(std::min(field.Content.size(), static_cast<std::size_t>(maximum)));
        t_InputForm(0, ">", field.Content.empty() ? "" : "7 ", true, field.Mode, maximum);
        field.Most = static_cast<std::size_t>(
            std::clamp<std::int64_t>(w.TextLastColumn - w.InputHpos, 0, maximum));
        field.Cursor = field.Content.size();

        // The screen, and where in it the field begins.
        std::string screen = ScreenText(0);
        const auto start = static_cast<std::size_t>((w.InputVpos - 1) * 21 + w.InputHpos - 1);
        for (std::int64_t keys = random.Between(1, 60); keys > 0; --keys) {
            t_EventQueue.Clear();
            field.Typed.clear();
            const std::int64_t key = AnyKey(random);
            for (int i = 0; key == 30 && i < 3; ++i) {
                const bool other = i > 0 && random.Between(0, 3) == 0;
                field.Typed += static_cast<char32_t>(other ? 'x' : random.Between('0', '9'));
            }
            for (const char32_t c : field.Typed) t_QueueKeys(toolkit::CharacterString(c));
            const std::size_t before = field.Content.size();
            field.Apply(key);
            t_InputEdit(0, key);

            screen.replace(start, before, before, ' ');
            std::ranges::transform(field.Content,
                                   screen.begin() + static_cast<std::ptrdiff_t>(start), Shown);
            ASSERT_EQ(Decoded(w.InputString), field.Content) << key;
            ASSERT_EQ(w.InputCursorPos, std::ssize(field.Content.substr(0, field.Cursor))) << key;
            ASSERT_EQ(w.InputFinished, field.Finished) << key;
            ASSERT_EQ(ScreenText(0), screen) << key;
            ASSERT_EQ(w.TextColor, color);
            ASSERT_EQ(w.TextDisplayMode, 0);
            t_InputEdit(0, 31);
            ASSERT_EQ(w.TextHpos, w.InputHpos + w.InputCursorPos);
        }
    }
}
