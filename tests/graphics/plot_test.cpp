#include "tests/support/fixture.h"

using LoRes = WindowTest;

TEST_F(LoRes, PlottingColorsOneHalfOfACellAndReadsBack) {
    t_LoResMode(0, 1);
    t_LoResOffset(0, 0, 2);
    t_Color(0, 9);
    t_Plot(0, 1, 3);
    EXPECT_EQ(ColorsOfLine(0, 3), "C0 C0 C9 C9 C0 C0 C0 C0 ");
    EXPECT_EQ(t_Scrn(0, 1, 3), 9);
    EXPECT_EQ(t_Scrn(0, 1, 2), 12);
}
