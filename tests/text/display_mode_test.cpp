#include "tests/support/fixture.h"

// What the display modes and the escape commands make of character codes.

namespace {

class DisplayModes : public WindowTest {
  protected:
    // The cursor at the start of a cleared window in colours 0x5A.
    void Start(std::int64_t mode) {
        w.TextColor = 0x5A;
        t_PrintControl(0, 12);
        t_DisplayMode(0, mode);
    }

    // One character, through t_Print or, `direct`, through t_PrintChar.
    static void Print(bool direct, int code) {
        const auto byte = static_cast<std::uint8_t>(code);
        direct ? t_PrintChar(0, byte) : t_Print(0, Text{{byte}});
    }

    static int Shown(std::int64_t mode, int k) {
        if (mode == 1 && k >= 32 && k <= 127) return k + 128;
        if (mode == 2 && k >= 96 && k <= 127) return k + 32;
        if (mode == 2 && k >= 64 && k <= 95) return k - 64;
        return (mode == 3 || mode == 4) && k <= 31 ? k + 64 : k;
    }

    t_Window& w = t_Windows[0];
};

}  // namespace

TEST_F(DisplayModes, MapEveryCode) {
    for (const std::int64_t mode : {-1, 0, 1, 2, 3, 4, 5, 98, 100}) {
        for (int n = 0; n < 512; ++n) {
            const int k = n / 2;
            const bool direct = n % 2 == 0 || (k < 32 && mode < 3);  // else a control code
            SCOPED_TRACE(testing::Message() << mode << " " << k);
            Start(mode);
            Print(direct, k);
            const toolkit::Cell cell = toolkit::CellAt(w, 1, 1);
            EXPECT_EQ(cell.Symbol, Shown(mode, k));
            const bool marked = k < 32 && (mode == 3 || mode == 4);
            EXPECT_EQ(cell.Color, !marked ? 0x5A : mode == 3 ? 0xA5 : 0x1A);
            EXPECT_EQ(w.TextHpos, 2);
            EXPECT_TRUE(!w.TextInverse && w.TextColor == 0x5A && w.TextDisplayMode == mode);
        }
    }
}

TEST_F(DisplayModes, ShowCharactersAbove255AsQuestionMarks) {
    for (const std::int64_t mode : {0, 1, 3, 4, 99}) {
        Start(mode);
        t_Print(0, "€\xF0\x9F\x98\x80");
        EXPECT_EQ(ScreenText(0).substr(0, 3), "?? ");
        EXPECT_EQ(ColorsOfLine(0, 1).substr(0, 6), mode == 4 ? "1A 1A " : "5A 5A ");
        EXPECT_TRUE(w.TextColor == 0x5A && w.TextDisplayMode == mode);
    }
}

TEST_F(DisplayModes, EscapeCommandsRunAndEndTheEscape) {
    w.TextFirstColumn = 2;
    w.TextLastColumn = 7;
    w.TextLastLine = 3;
    for (int n = 0; n < 512; ++n) {
        const int k = n / 2;
        SCOPED_TRACE(k);
        Start(0);
        t_ColorBorder(0, 5);
        t_PrintControl(0, 27);
        Print(n % 2 == 0, k);

        const bool foreground = k >= 64 && k < 80;
        const bool background = k >= 80 && k < 96;
        const bool border = k >= 110 && k < 128;
        const bool tab = k >= 105 && k <= 107;  // no stop is left: to the next line
        const bool command = foreground || background || border || tab || k == 101 || k == 102;
        EXPECT_EQ(w.TextDisplayMode, command ? 0 : 99);
        EXPECT_EQ(w.TextColor, foreground ? (k - 64) * 16 + 10 : background ? k : 0x5A);
        EXPECT_EQ(w.RGBColorBorder, t_PaletteColor(border ? (k - 110) % 16 : 5));
        EXPECT_EQ(toolkit::CellAt(w, 2, 1).Symbol, command ? 32 : k);
        EXPECT_EQ(w.TextHpos, k == 101 ? 7 : k == 102 ? 8 : command ? 2 : 3);
        EXPECT_EQ(w.TextVpos, k == 101 ? 3 : tab ? 2 : 1);
    }
    Start(99);
    const auto [code, inverse, color] = t_ApplyDisplayMode(0, 67);
    EXPECT_TRUE(code == -1 && !inverse && color == 0x3A);
    Start(0);
    t_Print(0, "\x1B\x41\x1B\x61\rB");  // both escapes leave a command to come
    EXPECT_EQ(ScreenText(0).substr(9, 8), "        ");
    EXPECT_EQ(w.TextColor, 0x2A);
}

TEST_F(DisplayModes, EscapeTabsGoToTheNextStop) {
    Open(0, 8, 80, 4);
    for (std::int64_t n = 0; n < 480; ++n) {
        const std::int64_t first = n % 2 == 0 ? 1 : 15;
        const std::int64_t columns = 10 << (n / 2 % 3);
        const std::int64_t start = std::max(first, n / 6 + 1);
        SCOPED_TRACE(testing::Message() << first << " " << columns << " " << start);
        toolkit::FillRun(w.TextMemoryStart, 320, 'x');
        w.TextFirstColumn = first;
        w.TextHpos = start;
        w.TextVpos = 1;
        t_Print(0, std::string("\x1B") + (columns == 10 ? 'i' : columns == 20 ? 'j' : 'k'));
        const std::int64_t stop = start / columns * columns + columns + 1;
        const bool none = stop > 80 - first + 1;
        std::string line(80, 'x');
        for (std::int64_t x = start; x < (none ? 81 : stop); ++x) line.data()[x - 1] = ' ';
        EXPECT_EQ(ScreenText(0).substr(0, 80), line);
        EXPECT_EQ(w.TextHpos, none ? first : stop);
        EXPECT_EQ(w.TextVpos, none ? 2 : 1);
    }
}
