#include <algorithm>
#include <string>

#include "tests/support/fixture.h"
#include "tests/support/random.h"
#include "toolkit/core/utf8.h"

// Random keys against a model of the field: a string, an index and the rules of the input modes.

namespace {

using String = std::u32string;

using LineEditorModel = WindowTest;

bool IsDigit(char32_t c) {
    return c >= '0' && c <= '9';
}

struct Field {
    std::int64_t Mode = 0;
    std::size_t Most = 0;  // characters, by the maximum and by the room in the line
    String Content;
    std::size_t Cursor = 0;
    bool Finished = false;

    bool Accepts(char32_t c) const {
        const bool atStart = Cursor == 0;
        const bool isNew = Content.find(c) == String::npos;
        if (Mode < 2 || Mode > 4 || IsDigit(c)) return true;
        if (Mode == 2) return c == '-' && atStart;
        if (Mode == 4) return c == '-' && !atStart && isNew;
        return c == '-' ? atStart || Content[Cursor - 1] == 'e' : (c == ',' || c == 'e') && isNew;
    }

    void Insert(std::int64_t code) {
        if (Content.size() >= Most || code == 0) return;
        char32_t c = toolkit::IsScalar(code) ? static_cast<char32_t>(code) : 0;
        if (Mode == 3 && c == 'E') c = 'e';
        if (Mode == 3 && c == '.') c = ',';
        if (Accepts(c)) Content.insert(Cursor++, 1, c);
    }

    // The first of the digits is one.
    void InsertByNumber(std::string_view digits) {
        std::int64_t code = 0;
        for (const char c : digits.substr(0, digits.find('x'))) code = code * 10 + c - '0';
        if (code >= (Mode == 1 ? 1 : 32) && code <= 255) Insert(code);
    }

    void Apply(std::int64_t key, std::string_view digits) {
        const auto is = [key](std::initializer_list<std::int64_t> keys) {
            return std::ranges::find(keys, key) != keys.end();
        };
        const std::size_t end = Content.size();
        const std::size_t blankBefore = Cursor < 2 ? String::npos : Content.rfind(' ', Cursor - 2);
        if (is({3, 5, 6, 10})) Cursor = end;
        if (key == 4)
            Cursor = Cursor == end ? end : std::min(Content.find(' ', Cursor), end - 1) + 1;
        if (key == 19) Cursor = blankBefore + 1;  // 0 without one
        if (key == 8 && Cursor > 0) --Cursor;
        if (key == 21 && Cursor < end) ++Cursor;
        if (key == 7 && Cursor < end) Content.erase(Cursor, 1);
        if (key == 127 && Cursor > 0) Content.erase(--Cursor, 1);
        if (key == 24) Content.erase(0, Cursor);
        if (is({26, 27})) Content.clear();
        if (is({1, 2, 11, 18, 24, 26, 27})) Cursor = 0;
        if (is({13, 27})) Finished = key == 13;
        if (key == 30) InsertByNumber(digits);
        if (key >= 32 && key != 127) Insert(key);
    }
};

constexpr std::int64_t kKeys[] = {0,   1,   3,   4,   4,   7,   8,   8,      13,
                                  19,  19,  21,  24,  26,  27,  30,  127,    127,
                                  '-', '-', ',', '.', 'e', 'E', ' ', 0x20AC, 0xD800};

std::int64_t AnyKey(Random& random) {
    const std::int64_t kind = random.Between(0, 9);
    if (kind < 5) return kKeys[random.Between(0, std::ssize(kKeys) - 1)];
    return kind < 8 ? random.Between('0', '9') : random.Between(-3, 300);
}

// How a character of the field looks in ScreenText.
char Shown(char32_t c) {
    if (c > 255) return '?';
    return c < 32 ? static_cast<char>(c + 64) : c < 127 ? static_cast<char>(c) : '.';
}

}  // namespace

TEST_F(LineEditorModel, AgreesAfterEveryKey) {
    Random random;
    Open(0, 24, 20, 3);
    t_Window& w = t_Windows[0];
    for (int sequence = 0; sequence < 600; ++sequence) {
        w.TextFirstColumn = random.Between(1, 6);
        w.TextLastColumn = random.Between(w.TextFirstColumn + 3, 20);
        w.TextVpos = random.Between(1, 3);
        w.TextHpos = random.Between(w.TextFirstColumn, w.TextLastColumn - 2);
        w.TextColor = random.Byte();
        const std::uint8_t color = w.TextColor;
        t_ClearEndOfLine(0);

        Field field;
        field.Mode = random.Between(0, 5);
        const std::int64_t maximum = random.Between(0, 20);
        const std::string preset = maximum > 0 && random.Coin() ? "7" : "";
        t_InputForm(0, ">", preset, true, field.Mode, maximum);
        field.Most = static_cast<std::size_t>(
            std::clamp<std::int64_t>(w.TextLastColumn - w.InputHpos, 0, maximum));
        field.Content.assign(preset.begin(), preset.end());
        field.Cursor = preset.size();

        std::string screen = ScreenText(0);
        const auto start = (w.InputVpos - 1) * 21 + w.InputHpos - 1;  // of the field in it
        for (std::int64_t keys = random.Between(1, 60); keys > 0; --keys) {
            const std::int64_t key = AnyKey(random);
            std::string digits;
            while (key == 30 && digits.size() < 3) {
                const bool digit = digits.empty() || random.Between(0, 3) > 0;
                digits += static_cast<char>(digit ? random.Between('0', '9') : 'x');
            }
            t_EventQueue.Clear();
            Type(digits);
            std::fill_n(screen.begin() + start, field.Content.size(), ' ');
            field.Apply(key, digits);
            std::ranges::transform(field.Content, screen.begin() + start, Shown);
            t_InputEdit(0, key);

            const std::vector<char32_t> content = toolkit::Characters(w.InputString);
            ASSERT_EQ(String(content.begin(), content.end()), field.Content) << key;
            ASSERT_EQ(static_cast<std::size_t>(w.InputCursorPos), field.Cursor) << key;
            ASSERT_EQ(w.InputFinished, field.Finished) << key;
            ASSERT_EQ(ScreenText(0), screen) << key;
            ASSERT_EQ(w.TextColor, color);
            ASSERT_EQ(w.TextDisplayMode, 0);
            t_InputEdit(0, 31);
            ASSERT_EQ(w.TextHpos, w.InputHpos + w.InputCursorPos);
        }
    }
}
