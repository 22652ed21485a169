#include "toolkit/text/area.h"

#include "tests/support/fixture.h"

namespace {

class TextArea : public WindowTest {
  protected:
    TextArea() { Open(0, 24, 5, 4); }

    t_Window& w = t_Windows[0];
};

}  // namespace

TEST_F(TextArea, ColorsAreTakenModulo16AndTheFullAreaIsTheGrid) {
    const t_Window before = w;
    w.TextFirstColumn = w.TextLastColumn = w.TextFirstLine = w.TextLastLine = 2;
    t_FullArea(0);
    EXPECT_EQ(w, before);
    w.TextColor = 0x5A;
    t_Color(0, 18);
    EXPECT_EQ(w.TextColor, 0x2A);
    EXPECT_EQ(w.RGBColor, (t_RGBColor{255, 0, 0, 128}));
}

TEST_F(TextArea, InvertedRectanglesExchangeTheColorsTheyShow) {
    t_PrintSymbol(0, 'A', 0x5A, 2, 2);
    const std::vector<std::uint8_t> picture = PictureBytes(0);
    for (const auto& [column, line, lastColumn, lastLine] : {std::array{0, 1, 2, 2},
                                                             {1, 0, 2, 2},
                                                             {1, 1, 6, 2},
                                                             {1, 1, 2, 5},
                                                             {3, 1, 2, 2},
                                                             {1, 3, 2, 2}}) {
        t_InvertRect(0, column, line, lastColumn, lastLine);
        EXPECT_EQ(PictureBytes(0), picture);
    }
    for (const bool inverse : {false, true}) {
        w.TextInverse = inverse;
        t_InvertRect(0, 1, 2, 2, 4);
        EXPECT_EQ(ColorsOfLine(0, 1) + ColorsOfLine(0, 2), "C0 C0 C0 C0 C0 0C A5 C0 C0 C0 ");
        EXPECT_EQ(ColorsOfLine(0, 3) + ColorsOfLine(0, 4), "0C 0C C0 C0 C0 0C 0C C0 C0 C0 ");
        EXPECT_EQ(ScreenText(0), "     \n A   \n     \n     \n");
        EXPECT_NE(PictureBytes(0), picture);
        t_InvertRect(0, 1, 2, 2, 4);
        EXPECT_EQ(PictureBytes(0), picture);
        EXPECT_EQ(w.TextInverse, inverse);
    }
}

TEST_F(TextArea, TheScreenIsReadAsTrimmedLines) {
    EXPECT_EQ(t_GetScreen(0, "\r"), "");
    t_Print(0, "AB");
    EXPECT_EQ(t_GetScreen(0, "\r"), "AB");
    EXPECT_EQ(t_GetScreen(0, "|"), "AB   |     |     |     |");
    t_Print(0, "\r\r Äÿ\x7F");
    EXPECT_EQ(t_GetScreen(0, "\r"), "AB\r\r Äÿ\x7F");
    t_PrintSymbol(0, 13, 0xC0, 2, 1);  // cuts its line in two
    EXPECT_EQ(t_GetScreen(0, "\r"), "A\r\r\r Äÿ\x7F");
}
