#include <algorithm>

#include "tests/support/fixture.h"

namespace {

using namespace std::string_literals;

// Window 0 with 12 columns and 4 lines.
class LineEditor : public WindowTest {
  protected:
    LineEditor() {
        Open(0, 24, 12, 4);
        desktop.ClearPrinted();
    }

    // Has the person press these keys, each when the program waits for one.
    void WhenAskedPress(const std::string& keys) {
        desktop.OnSleep = [this, keys, next = std::size_t{0}]() mutable {
            EXPECT_EQ(w.TextCursorLevel, 1);
            EXPECT_EQ(w.TextHpos, w.InputHpos + w.InputCursorPos);
            ASSERT_LT(next, keys.size());
            View(0).Press({36, keys.substr(next++, 1), 0});
        };
    }

    t_Window& w = t_Windows[0];
};

struct FormRow {
    std::int64_t Mode, Maximum;
    std::string Preset, Keys, Result;
};
// ^ stands for Control-^.
const FormRow kForms[] = {
    {2, 5, "50", "1\r", "501"},
    {2, 3, "123456", "\r", "123"},
    {0, 3, "äöüß", "\r", "äöü"},
    {0, 0, "abc", "x\r", ""},
    {0, -5, "abc", "x\r", ""},
    {0, 20, "", "123456789012345\r", "12345678901"},  // the last column stays free
    {0, 9, "abc", "x\x1By", ""},
    {2, 9, "", "-12\r", "-12"},
    {2, 9, "", "1-2,.e \r", "12"},
    {4, 9, "", "-12\r", "12"},
    {4, 9, "", "1-2-3\r", "1-23"},
    {3, 9, "", "1.5E-3\r", "1,5e-3"},
    {3, 9, "", "-1.5,2-e-e.xÄ\r", "-1,52e-"},
    {7, 9, "", "Ä€\x01~\r", "~Ä€"},
    {0, 9, "ab", "\x02\x7F\r", "ab"},
    {0, 9, "ab", "\x07\r", "ab"},
    {0, 9, "ab", "\x15\x08x\x09\x17\x1D\r", "axb"},
    {0, 9, "ab cd", "\x02\x04|\x04|\r", "ab |cd|"},  // word right
    {0, 9, "ab cd", "\x13|\x13\x13|\r", "|ab |cd"},  // word left
    {0, 9, "", "^65q\r", "A"},                       // and the letter is used up
    {0, 9, "", "^228\r", "ä"},
    {0, 9, "", "^007^31q^256^999\r", ""},
    {1, 9, "", "^007^0q^000^256\r", "\x07"},
    {1, 9, "", "^9q\r", "\x09"},
    {0, 9, "", "^q65\r", "65"},
};

}  // namespace

TEST_F(LineEditor, KeysMakeTheText) {
    for (const FormRow& row : kForms) {
        t_CursorHome(0);
        std::string keys = row.Keys;
        std::replace(keys.begin(), keys.end(), '^', '\x1E');
        Type(keys);
        EXPECT_EQ(t_InputForm(0, "", row.Preset, false, row.Mode, row.Maximum), row.Result);
        EXPECT_EQ(w.InputFinished, keys.back() == '\r');
        t_EventQueue.Clear();
    }
}

TEST_F(LineEditor, AFormWaitsForThePersonAndLeavesTheLine) {
    Type("9\r");
    EXPECT_EQ(t_InputForm(0, "n: ", "12", true, 2, 5), "12");  // only shown
    EXPECT_EQ(t_EventQueue.size(), 2);
    EXPECT_EQ(w.TextHpos, 6);
    t_Cr(0);
    t_EventQueue.Clear();
    w.TextColor = 0x5A;
    WhenAskedPress("\x7Fx1\x08\r");
    EXPECT_EQ(t_InputForm(0, "\x07n: ", "50", false, 0, 5), "5x1");
    EXPECT_DOUBLE_EQ(desktop.Now(), desktop.StartTime + 0.05);
    EXPECT_EQ(w.TextCursorLevel, 0);
    WhenAskedPress("34\x1B");
    EXPECT_EQ(t_InputForm(0, "n: ", "12", false, 2, 5), "");
    EXPECT_FALSE(w.InputFinished);
    EXPECT_EQ(w.TextHpos, 1);
    EXPECT_EQ(w.TextVpos, 4);
    EXPECT_EQ(w.TextDisplayMode, 0);
    // The control character in a prompt is shown in colour 1.
    EXPECT_EQ(ScreenText(0), "n: 12       \nGn: 5x1     \nn:          \n            \n");
    EXPECT_EQ(ColorsOfLine(0, 2).substr(0, 6), "1A 5A ");
    EXPECT_EQ(desktop.Printed(), "");
}

TEST_F(LineEditor, CopiesTheTextAndPastesTheFirstLine) {
    desktop.BoardPicture = platform::Picture();
    w.InputString = "a" + t_EncodeEscapes("€") + "\x1Bz";
    t_InputEdit(0, 12);
    EXPECT_EQ(desktop.BoardText, "a€\x1Bz");
    EXPECT_FALSE(desktop.BoardPicture.has_value());
    struct Row {
        std::optional<std::string> Board;
        std::string Result;
        std::int64_t Left;  // keys that nobody takes
    };
    const Row rows[] = {{"a\nb", "a", 0},
                        {"ä+\rb\nc", "ä+", 0},
                        {"", "", 0},
                        {std::nullopt, "", 0},
                        {"x€y", "", 6}};  // its ESC cancels the field
    for (const Row& row : rows) {
        desktop.BoardText = row.Board;
        t_CursorHome(0);
        Type("\x16");
        desktop.OnSleep = [] { Type("\r"); };
        EXPECT_EQ(t_InputForm(0, "", "", false, 0, 9), row.Result);
        EXPECT_EQ(t_EventQueue.size(), row.Left);
        t_EventQueue.Clear();
    }
}

TEST_F(LineEditor, WaitingTakesTheNextEventThatIsAKey) {
    desktop.OnSleep = [] { ADD_FAILURE() << "waits although a key is there"; };
    TypeCodes({-1, -300, 0xD800, 0, 0x20AC, -5});
    EXPECT_EQ(t_WaitKey(0), "\0"s);
    EXPECT_EQ(t_WaitKey(0), "\0"s);
    EXPECT_EQ(t_WaitKey(0), "€");
    w.InputHpos = w.TextHpos;
    WhenAskedPress("q");
    EXPECT_EQ(t_WaitKey(0), "q");
    desktop.OnSleep = [] { Type("k"); };
    EXPECT_EQ(Printed([] { EXPECT_EQ(t_WaitKey(9), "k"); }),
              "t_CursorOn: Window is not a graphic window.\n"
              "t_CursorOff: Window is not a graphic window.\n");
}

TEST_F(LineEditor, QuestionsAreAnsweredWithOneKey) {
    struct Row {
        std::string_view Keys;
        std::int64_t Default, Answer;
        char Echo;
    };
    constexpr Row kRows[] = {{"\r ", 1, 1, 'J'},    {"\r ", 0, 0, 'N'}, {"\r ", 7, 7, 'N'},
                             {"jJyY", 0, 1, 'J'},   {"nN", 1, 0, 'N'},  {"\x1B", 1, -1, 'N'},
                             {"x€\x03", 1, -2, 'N'}};
    for (const Row& row : kRows) {
        Type(row.Keys);
        for (bool echo = true; t_EventPending; echo = !echo) {
            t_CursorHome(0);
            t_Print(0, "?..\x08\x08");
            EXPECT_EQ(t_InputYesNo(0, row.Default, echo), row.Answer) << row.Keys;
            EXPECT_EQ(ScreenText(0).substr(0, 3), echo ? "?"s + row.Echo + "." : "?..") << row.Keys;
            EXPECT_EQ(w.TextHpos, echo ? 3 : 2);
        }
    }
}
