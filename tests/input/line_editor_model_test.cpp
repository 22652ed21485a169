#include <algorithm>
#include <string>

#include "tests/support/field_model.h"
#include "tests/support/fixture.h"
#include "tests/support/random.h"
#include "toolkit/core/utf8.h"

// Random keys against a model of the field: a string, an index and the rules of the input modes.

namespace {

using LineEditorModel = WindowTest;

constexpr std::int64_t kKeys[] = {0,   1,   3,   4,   4,   7,   8,   8,      13,
                                  19,  19,  21,  24,  26,  27,  30,  127,    127,
                                  '-', '-', ',', '.', 'e', 'E', ' ', 0x20AC, 0xD800};

std::int64_t AnyKey(Random& random) {
    const std::int64_t kind = random.Between(0, 9);
    if (kind < 5) return kKeys[random.Between(0, std::ssize(kKeys) - 1)];
    return kind < 8 ? random.Between('0', '9') : random.Between(-3, 300);
}

// Shows a field somewhere in the window and gives its model.
FieldModel AnyField(Random& random, t_Window& w, std::uint8_t color) {
    w.TextFirstColumn = random.Between(1, 6);
    w.TextLastColumn = random.Between(w.TextFirstColumn + 3, 20);
    w.TextVpos = random.Between(1, 3);
    w.TextHpos = random.Between(w.TextFirstColumn, w.TextLastColumn - 2);
    w.TextColor = color;
    t_ClearEndOfLine(0);

    FieldModel field;
    field.Mode = random.Between(0, 5);
    const std::int64_t maximum = random.Between(0, 20);
    const std::string preset = maximum > 0 && random.Coin() ? "7" : "";
    t_InputForm(0, ">", preset, true, field.Mode, maximum);
    field.Most = static_cast<std::size_t>(
        std::clamp<std::int64_t>(w.TextLastColumn - w.InputHpos, 0, maximum));
    field.Content.assign(preset.begin(), preset.end());
    field.Cursor = preset.size();
    return field;
}

// What may be typed after the key that asks for a character's number.
std::string AnyDigits(Random& random) {
    std::string digits;
    while (digits.size() < 3) {
        const bool digit = digits.empty() || random.Between(0, 3) > 0;
        digits += static_cast<char>(digit ? random.Between('0', '9') : 'x');
    }
    return digits;
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
        const std::uint8_t color = random.Byte();
        FieldModel field = AnyField(random, w, color);
        std::string screen = ScreenText(0);
        const auto start = (w.InputVpos - 1) * 21 + w.InputHpos - 1;  // of the field in it
        for (std::int64_t keys = random.Between(1, 60); keys > 0; --keys) {
            const std::int64_t key = AnyKey(random);
            const std::string digits = key == 30 ? AnyDigits(random) : "";
            t_EventQueue.Clear();
            Type(digits);
            std::fill_n(screen.begin() + start, field.Content.size(), ' ');
            field.Apply(key, digits);
            std::transform(field.Content.begin(), field.Content.end(), screen.begin() + start,
                           Shown);
            t_InputEdit(0, key);

            const std::vector<char32_t> content = toolkit::Characters(w.InputString);
            ASSERT_EQ(std::u32string(content.begin(), content.end()), field.Content) << key;
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
