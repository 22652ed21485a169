#include "toolkit/text/header.h"

#include "tests/support/fixture.h"

namespace {

class Headers : public WindowTest {
  protected:
    Headers() { Open(0, 8, 80, 4); }

    std::string Line(std::size_t line) { return ScreenText(0).substr(81 * (line - 1), 80); }
    void ExpectCursor(std::int64_t column, std::int64_t line) {
        EXPECT_TRUE(w.TextHpos == column && w.TextVpos == line) << w.TextHpos << " " << w.TextVpos;
    }

    t_Window& w = t_Windows[0];
    const std::string title = std::string(10, 'T');
    const std::string credit = std::string(20, 'C');
};

}  // namespace

TEST_F(Headers, LinesAreFilledOrCutToTheWidth) {
    EXPECT_EQ(t_HeaderLine("Ab", "yz", 7), "Ab   yz");
    EXPECT_EQ(t_HeaderLine("Ab", "yz", 5), "Ab yz");
    EXPECT_EQ(t_HeaderLine("Ab", "yz", 4), "Abyz");
    EXPECT_EQ(t_HeaderLine("Ab", "yz", 3), "Aby");
    EXPECT_EQ(t_HeaderLine("ÄÖ", "ß€", 6), "ÄÖ  ß€");
    EXPECT_EQ(t_HeaderLine("ÄÖ", "ß€", 3), "ÄÖß");
    EXPECT_EQ(t_HeaderLine("", "", 2), "  ");
    for (const std::int64_t width : {INT64_C(0), INT64_C(-3), INT64_MIN}) {
        EXPECT_EQ(t_HeaderLine("Ab", "yz", width), "");
    }
}

TEST_F(Headers, FillALineOfTheAreaWithoutWrapping) {
    t_Header(0, title, credit);
    EXPECT_EQ(Line(1), title + std::string(50, ' ') + credit);
    ExpectCursor(1, 2);
    t_Vtab(0, 4);
    t_Header(0, "Ä", "ß");  // on the last line only the step to the next one scrolls
    EXPECT_EQ(toolkit::CellAt(w, 1, 3).Symbol, 0xC4);
    EXPECT_EQ(toolkit::CellAt(w, 80, 3).Symbol, 0xDF);
    EXPECT_EQ(Line(4), std::string(80, ' '));
    ExpectCursor(1, 4);

    w.TextFirstColumn = w.TextHpos = 11;  // an area of one line, too narrow for the text
    w.TextLastColumn = 40;
    w.TextFirstLine = w.TextLastLine = 4;
    t_Header(0, title, credit + "X");
    EXPECT_EQ(Line(4), std::string(10, ' ') + title + credit + std::string(40, ' '));
    ExpectCursor(11, 4);
}

TEST_F(Headers, EndWithACharacterInTheColorOfTheirStart) {
    w.TextLastColumn = 4;
    t_Header(0, "\x1B\x41y", "z");  // foreground colour 1 from the y on
    EXPECT_EQ(ColorsOfLine(0, 1).substr(0, 9), "10 C0 C0 ");
    EXPECT_EQ(Line(1).substr(0, 3), "yz ");
    w.TextLastColumn = 0;  // no room: the character 0 alone
    t_Header(0, "A", "B");
    EXPECT_EQ(toolkit::CellAt(w, 1, 2).Symbol, 0);
}

TEST_F(Headers, RulesRunFromTheCursorToTheEndOfTheArea) {
    t_Htab(0, 30);
    w.TextLastColumn = 70;
    w.TextColor = 0x5A;
    for (const std::int64_t line : {1, 4}) {
        w.TextHpos = 30;
        w.TextVpos = line;
        t_TextLine(0);
        ExpectCursor(1, line == 4 ? 4 : 2);
        for (std::int64_t column = 1; column <= 80; ++column) {
            const auto [symbol, color] = toolkit::CellAt(w, column, line == 4 ? 3 : 1);
            EXPECT_EQ(symbol, column >= 30 && column <= 70 ? 156 : 32) << column;
            EXPECT_EQ(color, column >= 30 && column <= 70 ? 0x5A : 0xC0) << column;
        }
    }
}

TEST_F(Headers, HorizontalLinesReportCellsOutsideThePicture) {
    EXPECT_EQ(Printed([] { t_TextHline(0, 79, 81, 3, 'x'); }),
              "t_PrintSymbol: Window #0 illegal coordinates (x = 81, y = 3).\n");
    EXPECT_EQ(Printed([] { t_TextHline(0, 5, 4, 3, 'x'); }), "");
    EXPECT_EQ(Line(3), std::string(78, ' ') + "xx");
    ExpectCursor(1, 1);
}

TEST_F(Headers, TheTextCursorShowsFromLevelOneOn) {
    std::string levels;
    for (const auto step : {t_CursorOff, t_CursorOn, t_CursorOn, t_CursorOn, t_CursorOff,
                            t_CursorOff, t_CursorOff, t_CursorDraw, t_CursorDraw}) {
        step(0);
        levels += std::to_string(w.TextCursorLevel) + ":" + ColorsOfLine(0, 1).substr(0, 3);
    }
    EXPECT_EQ(levels, "-1:C0 0:C0 1:0C 2:0C 1:0C 0:C0 -1:C0 -1:0C -1:C0 ");
    EXPECT_FALSE(w.TextInverse);
}
