#include "tests/support/fixture.h"

namespace {

constexpr std::int64_t kColumns = 5;
constexpr std::int64_t kLines = 4;

class LoRes : public WindowTest {
  protected:
    LoRes() { Open(0, 24, kColumns, kLines); }

    t_Window& w = t_Windows[0];
};

// The colour bytes of all cells, as ColorsOfLine gives them line by line: a digit for each block.
struct Blocks {
    std::vector<std::string> Lines = std::vector<std::string>(kLines, "00 00 00 00 00 ");

    char* At(std::int64_t x, std::int64_t y) {
        if (x < 0 || y < 0 || x >= kColumns || y >= 2 * kLines) return nullptr;
        return &Lines[static_cast<std::size_t>(y / 2)][static_cast<std::size_t>(3 * x + y % 2)];
    }
    void Plot(std::int64_t x, std::int64_t y, std::int64_t color) {
        if (At(x, y) != nullptr) *At(x, y) = t_HexText(color).back();
    }
};

}  // namespace

TEST_F(LoRes, PlotsTheBlocksOfEveryPointAndReadsTheFirstBack) {
    Blocks blocks;
    w.TextColor = 0;
    t_ClearWindowMemory(0);
    std::int64_t color = 0;
    for (const std::int64_t mode : {0, 1, 2}) {
        t_LoResMode(0, mode);
        for (const auto& [ox, oy] : {std::pair{0, 0}, {1, 3}, {-3, -1}, {-1, -2}}) {
            t_LoResOffset(0, ox, oy);
            for (int point = 0; point < 9 * 12; ++point) {
                const std::int64_t x = point % 9 - 1;
                const std::int64_t y = point / 9 - 1;
                SCOPED_TRACE(testing::Message() << mode << ox << oy << " " << x << " " << y);
                t_Color(0, color = (color + 1) % 16);
                const std::int64_t bx = ox + (mode == 0 ? x : 2 * x);
                const std::int64_t by = oy + (mode == 2 ? 2 * y : y);
                for (std::int64_t i = 0; i < (mode == 0 ? 1 : 2 * mode); ++i) {
                    blocks.Plot(bx + i % 2, by + i / 2, color);
                }
                ASSERT_EQ(Printed([&] { t_Plot(0, x, y); }), "");
                for (std::size_t i = 0; i < kLines; ++i) {
                    ASSERT_EQ(ColorsOfLine(0, static_cast<std::int64_t>(i) + 1), blocks.Lines[i]);
                }
                ASSERT_EQ(t_Scrn(0, x, y), blocks.At(bx, by) == nullptr ? -1 : color);
            }
        }
    }
    for (std::int64_t cell = 0; cell < kColumns * kLines; ++cell) {
        EXPECT_EQ(toolkit::CellAt(w, cell % kColumns + 1, cell / kColumns + 1).Symbol, 3);
    }
}

TEST_F(LoRes, InOtherModesPlotsAQuarterOrNothingAndReadsNothing) {
    t_LoResOffset(0, 1, 2);
    for (const std::int64_t mode : {3, 4, -1}) {
        t_LoResMode(0, mode);
        EXPECT_EQ(Printed([] { EXPECT_EQ(t_Scrn(0, 0, 0), -1); }), "");
        EXPECT_EQ(Printed([] { t_Plot(0, 1, 1); }),
                  mode == 3 ? "t_PlotHalfSize: PixelByte = 20, x = 2, y = 3, Plot position 2\n"
                            : "t_Plot: Illegal graphic mode.\n");
    }
    EXPECT_EQ(toolkit::CellAt(w, 2, 2).Symbol, 13);
}

TEST_F(LoRes, QuartersChangeTheCodesOfQuarterBlocksOnly) {
    w.TextColor = 0x5A;
    for (int n = 0; n < 256 * 4 * 2; ++n) {
        const int code = n / 8;
        const int position = n / 2 % 4;
        const bool plot = n % 2 == 0;
        t_PrintSymbol(0, static_cast<std::uint8_t>(code), 0xF0, 5, 4);
        int expected = code;
        if (code <= 14 || code == 32) {
            const int left = code == 32 ? 15 : code;
            expected = plot ? left & ~(8 >> position) : left | 8 >> position;
            if (expected == 15) expected = 32;
        }
        const int x = 8 + position % 2;
        const int y = 6 + position / 2;
        EXPECT_EQ(Printed([&] { t_PlotHalfSize(0, x, y, plot); }),
                  "t_PlotHalfSize: PixelByte = " + t_HexText(code).substr(6) +
                      ", x = " + std::to_string(x) + ", y = " + std::to_string(y) +
                      ", Plot position " + std::to_string(position) + "\n");
        EXPECT_EQ(toolkit::CellAt(w, 5, 4).Symbol, expected) << code << " " << position;
        EXPECT_EQ(toolkit::CellAt(w, 5, 4).Color, 0x5A);
    }
    const std::vector<std::uint8_t> before = PictureBytes(0);
    for (const auto& [x, y] : {std::pair{-1, 0}, {0, -1}, {10, 0}, {0, 8}}) {
        EXPECT_EQ(Printed([&, px = x, py = y] { t_PlotHalfSize(0, px, py, true); }), "");
    }
    EXPECT_EQ(PictureBytes(0), before);
}
