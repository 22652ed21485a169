#include "toolkit/text/cursor.h"

#include "tests/support/fixture.h"
#include "tests/support/random.h"

namespace {

constexpr std::int64_t kColumns = 8;
constexpr std::int64_t kLines = 4;

// A text screen as a grid of characters.
struct Screen {
    std::string Grid = "        \n        \n        \n        \n";
    std::int64_t FirstColumn = 1, LastColumn = kColumns, FirstLine = 1, LastLine = kLines;
    std::int64_t H = 1, V = 1;
    bool Lock = false;

    char& At(std::int64_t column, std::int64_t line) {
        return Grid.at(static_cast<std::size_t>((line - 1) * (kColumns + 1) + column - 1));
    }
    void Blank(std::int64_t from, std::int64_t line) {
        for (std::int64_t x = from; x <= LastColumn; ++x) At(x, line) = ' ';
    }
    void Scroll(std::int64_t from, std::int64_t to, std::int64_t step) {
        if (Lock) return;
        for (std::int64_t y = from; y != to; y += step) {
            for (std::int64_t x = FirstColumn; x <= LastColumn; ++x) At(x, y) = At(x, y + step);
        }
        Blank(FirstColumn, to);
    }
    void ScrollUp() { Scroll(FirstLine, LastLine, 1); }
    void ScrollDown() { Scroll(LastLine, FirstLine, -1); }
    void Down() {
        if (++V > LastLine) ScrollUp(), --V;
    }
    void Up() {
        if (--V < FirstLine) ScrollDown(), ++V;
    }
    void Cr() { H = FirstColumn, Down(); }
    void Right() {
        if (++H > LastColumn) Cr();
    }
    void Left() {
        if (--H < FirstColumn) H = LastColumn, Up();
    }
    void ClearLine() { Blank(H, V); }
    void ClearWindow() {
        ClearLine();
        for (std::int64_t y = V + 1; y <= LastLine; ++y) Blank(FirstColumn, y);
    }
    void Home() { H = FirstColumn, V = FirstLine; }
    void End() { H = LastColumn, V = LastLine; }
    void Htab(std::int64_t n) {
        if (n >= 1 && FirstColumn + n - 1 <= kColumns) H = FirstColumn + n - 1;
    }
    void Vtab(std::int64_t n) {
        if (n >= 1 && n <= kLines) V = n;
    }
};

using N = std::int64_t;

struct Step {
    const char* Name;
    void (*Real)(N n);
    void (*Expected)(Screen& s, N n);
};

constexpr Step kSteps[] = {
    {"t_Htab", [](N n) { t_Htab(0, n); }, [](Screen& s, N n) { s.Htab(n); }},
    {"t_Vtab", [](N n) { t_Vtab(0, n); }, [](Screen& s, N n) { s.Vtab(n); }},
    {"t_CursorRight", [](N) { t_CursorRight(0); }, [](Screen& s, N) { s.Right(); }},
    {"t_CursorLeft", [](N) { t_CursorLeft(0); }, [](Screen& s, N) { s.Left(); }},
    {"t_CursorDown", [](N) { t_CursorDown(0); }, [](Screen& s, N) { s.Down(); }},
    {"t_CursorUp", [](N) { t_CursorUp(0); }, [](Screen& s, N) { s.Up(); }},
    {"t_Cr", [](N) { t_Cr(0); }, [](Screen& s, N) { s.Cr(); }},
    {"t_CursorHome", [](N) { t_CursorHome(0); }, [](Screen& s, N) { s.Home(); }},
    {"t_CursorEnd", [](N) { t_CursorEnd(0); }, [](Screen& s, N) { s.End(); }},
    {"t_ScrollUp", [](N) { t_ScrollUp(0); }, [](Screen& s, N) { s.ScrollUp(); }},
    {"t_ScrollDown", [](N) { t_ScrollDown(0); }, [](Screen& s, N) { s.ScrollDown(); }},
    {"t_ClearEndOfLine", [](N) { t_ClearEndOfLine(0); }, [](Screen& s, N) { s.ClearLine(); }},
    {"t_ClearEndOfWindow", [](N) { t_ClearEndOfWindow(0); }, [](Screen& s, N) { s.ClearWindow(); }},
};

class Cursor : public WindowTest {
  protected:
    void Area(N firstColumn, N lastColumn, N firstLine, N lastLine) {
        w.TextFirstColumn = screen.FirstColumn = firstColumn;
        w.TextLastColumn = screen.LastColumn = lastColumn;
        w.TextFirstLine = screen.FirstLine = firstLine;
        w.TextLastLine = screen.LastLine = lastLine;
    }

    t_Window& w = t_Windows[0];
    Screen screen;
    Random random;
};

}  // namespace

TEST_F(Cursor, MovesScrollsAndClearsAsOnAGridOfCharacters) {
    for (int run = 0; run < 300; ++run) {
        const N column = random.OneOf({1, random.Between(1, kColumns)});
        const N line = random.Between(1, kLines);
        Area(column, random.OneOf({kColumns, random.Between(column, kColumns)}), line,
             random.Between(line, kLines));
        t_CursorHome(0);
        screen.Home();
        for (int i = 0; i < 60; ++i) {
            w.ScrollLock = screen.Lock = random.Between(0, 5) == 0;
            const auto letter = static_cast<std::uint8_t>(random.Between('A', 'Z'));
            t_PrintSymbol(0, letter, w.TextColor, w.TextHpos, w.TextVpos);
            screen.At(screen.H, screen.V) = static_cast<char>(letter);
            const Step& step = kSteps[random.Between(0, std::ssize(kSteps) - 1)];
            const N n = random.Between(-1, 9);
            EXPECT_EQ(Printed([&] { step.Real(n); }), "");
            step.Expected(screen, n);
            ASSERT_EQ(ScreenText(0), screen.Grid) << step.Name << " " << n;
            ASSERT_EQ(w.TextHpos, screen.H) << step.Name << " " << n;
            ASSERT_EQ(w.TextVpos, screen.V) << step.Name << " " << n;
        }
    }
}

TEST_F(Cursor, AreasBeyondTheGridStayInTheWindowsMemory) {
    Open(1, 24, 8, 4);
    const std::vector<std::uint8_t> neighbour = PictureBytes(1);
    t_Font large = TestFont();
    large.Height = 64;
    for (const t_Font& font : {TestFont(), large}) {
        t_WindowFont(0, font);
        for (const N first : {-3, 1, 3}) {
            for (const auto& [firstColumn, lastColumn] : {std::pair<N, N>{1, kColumns}, {3, 12}}) {
                Area(firstColumn, lastColumn, first, 9);
                t_ScrollUp(0);
                t_ScrollDown(0);
                t_CursorHome(0);
                t_ClearEndOfWindow(0);
            }
        }
    }
    EXPECT_EQ(PictureBytes(1), neighbour);
    EXPECT_EQ(ScreenText(1), Screen().Grid);
}
