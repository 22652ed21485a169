#include "toolkit/text/print.h"

#include "tests/support/fixture.h"
#include "tests/support/random.h"
#include "toolkit/core/utf8.h"

namespace {

constexpr const char* kFull = "abcdefgh\nijklmnop\nqrstuvwx\nyz012345\n";
constexpr const char* kEmpty = "        \n        \n        \n        \n";

class Printing : public WindowTest {
  protected:
    // Text in all cells, the cursor on the k.
    void FillScreen() {
        const std::string text = "abcdefghijklmnopqrstuvwxyz012345";
        toolkit::WriteRun(w.TextMemoryStart, t_StringToText(text).Elements);
        w.TextHpos = 3;
        w.TextVpos = 2;
    }

    // The windows' pictures, cells, cursors, colours and modes are alike.
    void ExpectLikeWindow0(std::uint8_t n) {
        const t_Window& other = t_Windows[n];
        for (std::int64_t line = 1; line <= 4; ++line) {
            EXPECT_EQ(ColorsOfLine(n, line), ColorsOfLine(0, line));
        }
        EXPECT_EQ(t_GetScreen(n, "|"), t_GetScreen(0, "|"));
        EXPECT_EQ(PictureBytes(n), PictureBytes(0));
        EXPECT_TRUE(other.TextHpos == w.TextHpos && other.TextVpos == w.TextVpos);
        EXPECT_TRUE(other.TextColor == w.TextColor && other.TextInverse == w.TextInverse);
        EXPECT_EQ(other.TextDisplayMode, w.TextDisplayMode);
        EXPECT_EQ(other.RGBColorBorder, w.RGBColorBorder);
    }

    t_Window& w = t_Windows[0];
    Random random;
};

// What a control code leaves of the full screen with the cursor in (3, 2) in mode 1.
struct ControlRow {
    std::uint8_t Code;
    std::int64_t Hpos = 3;
    std::int64_t Vpos = 2;
    std::int64_t Mode = 1;
    const char* Screen = kFull;
};

constexpr ControlRow kControlRows[] = {
    {.Code = 8, .Hpos = 2},
    {.Code = 10, .Vpos = 3},
    {.Code = 11, .Screen = "abcdefgh\nij      \n        \n        \n"},
    {.Code = 12, .Hpos = 1, .Vpos = 1, .Screen = kEmpty},
    {.Code = 13, .Hpos = 1, .Vpos = 3},
    {.Code = 18, .Hpos = 1},
    {.Code = 19, .Mode = 0},
    {.Code = 22, .Screen = "        \nabcdefgh\nijklmnop\nqrstuvwx\n"},
    {.Code = 23, .Screen = "ijklmnop\nqrstuvwx\nyz012345\n        \n"},
    {.Code = 25, .Hpos = 1, .Vpos = 1},
    {.Code = 26, .Hpos = 1, .Screen = "abcdefgh\n        \nqrstuvwx\nyz012345\n"},
    {.Code = 27, .Mode = 99},
    {.Code = 28, .Hpos = 4},
    {.Code = 29, .Screen = "abcdefgh\nij      \nqrstuvwx\nyz012345\n"},
    {.Code = 30, .Vpos = 1},
    {.Code = 31, .Mode = 2},
};

ControlRow ControlRowOf(std::uint8_t code) {
    for (const ControlRow& row : kControlRows) {
        if (row.Code == code) return row;
    }
    return {.Code = code};
}

}  // namespace

TEST_F(Printing, ControlCodesDoWhatTheyStandForAndOthersNothing) {
    for (int n = 0; n < 256 * 4; ++n) {
        const auto code = static_cast<std::uint8_t>(n / 4);
        const bool inverse = n % 2 == 0;
        const bool direct = code >= 32 || n % 4 < 2;
        SCOPED_TRACE(n);
        FillScreen();
        t_DisplayMode(0, code == 20 ? 0 : 1);
        w.TextInverse = inverse;
        desktop.ClearPlayed();
        direct ? t_PrintControl(0, code) : t_Print(0, Text{{code}});
        const ControlRow row = ControlRowOf(code);
        EXPECT_EQ(w.TextHpos, row.Hpos);
        EXPECT_EQ(w.TextVpos, row.Vpos);
        EXPECT_EQ(w.TextDisplayMode, row.Mode);
        EXPECT_EQ(ScreenText(0), row.Screen);
        EXPECT_EQ(w.TextInverse, code == 15 || (code != 14 && inverse != (code == 17)));
        EXPECT_EQ(desktop.Played().size(), code == 7 ? 1U : 0U);
    }
}

TEST_F(Printing, TabsAndBlanksCountColumnsFromTheCursor) {
    FillScreen();
    for (const std::int64_t column : {INT64_C(3), INT64_C(2), INT64_MIN}) t_PrintTab(0, column, 65);
    for (const std::int64_t count : {0, -1}) t_PrintSpc(0, count);
    EXPECT_EQ(ScreenText(0), kFull);
    t_PrintTab(0, 6, '*');
    t_PrintSpc(0, 1);
    t_PrintTab(0, 8, 13);  // drawn, not obeyed
    EXPECT_EQ(ScreenText(0), "abcdefgh\nij*** .p\nqrstuvwx\nyz012345\n");
    t_DisplayMode(0, 1);
    t_PrintSpc(0, 1);
    EXPECT_EQ(toolkit::CellAt(w, 8, 2).Symbol, 32 + 128);
}

// One call with the whole text does what one call per character does, in either form. After it the
// cursor stands in the grid, and drawing every cell again as recorded changes no pixel.
TEST_F(Printing, AWholeTextPrintsAsItsCharactersDo) {
    for (int run = 0; run < 240; ++run) {
        const std::int64_t depth = random.OneOf({1, 4, 8, 16, 24, 32});
        for (std::uint8_t n = 0; n < 3 && run % 20 == 0; ++n) Open(n, depth, 8, 4);
        const Text text{random.Bytes(random.Between(0, 40))};
        w.TextFirstColumn = random.Between(1, 8);
        w.TextFirstLine = random.Between(1, 4);
        w.TextLastColumn = random.Between(w.TextFirstColumn, 8);
        w.TextLastLine = random.Between(w.TextFirstLine, 4);
        w.ScrollLock = random.Coin();
        for (const std::uint8_t n : {std::uint8_t{0}, std::uint8_t{1}, std::uint8_t{2}}) {
            t_Windows[n].TextFirstColumn = w.TextFirstColumn;
            t_Windows[n].TextFirstLine = w.TextFirstLine;
            t_Windows[n].TextLastColumn = w.TextLastColumn;
            t_Windows[n].TextLastLine = w.TextLastLine;
            t_Windows[n].ScrollLock = w.ScrollLock;
            t_CursorHome(n);
        }
        std::string string;
        t_Print(0, text);
        for (const std::uint8_t code : text.Elements) {
            toolkit::AppendCharacter(string, code);
            t_Print(2, Text{{code}});
            ASSERT_GE(toolkit::CellIndex(w, t_Windows[2].TextHpos, t_Windows[2].TextVpos), 0);
        }
        t_Print(1, string);
        ExpectLikeWindow0(1);
        ExpectLikeWindow0(2);

        const std::vector<std::uint8_t> picture = PictureBytes(0);
        const bool inverse = w.TextInverse;
        w.TextInverse = false;
        for (std::int64_t cell = 0; cell < 32; ++cell) {
            const auto [symbol, color] = toolkit::CellAt(w, cell % 8 + 1, cell / 8 + 1);
            t_PrintSymbol(0, symbol, color, cell % 8 + 1, cell / 8 + 1);
        }
        w.TextInverse = inverse;
        ASSERT_EQ(PictureBytes(0), picture) << run;
    }
}

TEST_F(Printing, GoesToStandardOutputOrNowhereWhenRedirected) {
    const std::vector<std::uint8_t> picture = PictureBytes(0);
    for (const std::int64_t redirect : {2, 0, 3}) {
        t_RedirectOutput(0, redirect);
        EXPECT_EQ(Printed([] { t_Print(0, "Aä\r\x05€"), t_PrintChar(0, 10); }),
                  redirect == 2 ? "Aä\r\x05?\n" : "");
        t_Windows[5].TextRedirectOutput = redirect;  // never opened
        EXPECT_EQ(Printed([] { t_PrintControl(5, 200), t_PrintSymbol(5, 10, 0xF0, 99, 99); }),
                  redirect == 2 ? "È\n" : "");
    }
    EXPECT_EQ(w.TextVpos, 2);  // moved by the characters alone
    EXPECT_EQ(ScreenText(0), kEmpty);
    EXPECT_EQ(PictureBytes(0), picture);
    t_WindowFont(0, EmptyFont());
    for (const char* const string : {"AB\r", ""}) {
        EXPECT_EQ(Printed([&] { t_Print(0, string); }), "t_Print: Window #0 has no text font.\n");
    }
}

TEST_F(Printing, PausesAfterControlSUntilTheNextKeyOrMenuEvent) {
    struct Row {
        const char* String;
        const char* Seen;  // while it pauses
    };
    for (const Row& row : {Row{"AB", "AB "}, Row{"", "   "}, Row{"\rAB", "   "}}) {
        for (const bool menu : {false, true}) {
            t_PrintControl(0, 12);
            TypeCodes({65, 19});
            int sleeps = 0;
            desktop.OnSleep = [&] {
                EXPECT_TRUE(t_EventQueue.empty());
                EXPECT_EQ(ScreenText(0).substr(0, 3), row.Seen);
                EXPECT_TRUE(*row.String != '\r' || w.TextVpos == 1);
                if (++sleeps < 3) return;
                menu ? t_MenuEventQueue.Append(t_MenuEvent()) : Type("x");
            };
            t_Print(0, row.String);
            EXPECT_EQ(sleeps, 3);
            EXPECT_EQ(t_MenuEventQueue.size(), menu ? 1 : 0);
            EXPECT_EQ(t_CurrentEvent.Value, menu ? 0 : 'x');
            t_CurrentEvent = t_Event();
            EXPECT_TRUE(t_EventQueue.empty() && !t_EventPending);
            t_MenuEventQueue.Clear();
        }
    }
}

TEST_F(Printing, PausesForTheNewestKeyOnly) {
    EXPECT_FALSE(t_PrintPause(19, true));
    TypeCodes({19, 65});
    desktop.OnSleep = [] { ADD_FAILURE() << "paused"; };
    t_Print(0, "AB\r");
    EXPECT_FALSE(t_PrintPause(19, false));
    EXPECT_EQ(t_EventQueue.size(), 2);
    EXPECT_TRUE(t_PrintPause(65, false));
    EXPECT_TRUE(t_EventQueue.empty() && !t_EventPending);
}
