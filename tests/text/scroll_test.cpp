#include <algorithm>

#include "tests/support/fixture.h"
#include "tests/support/random_font.h"

// Window 0's grid is as wide as its text area, so that it scrolls by moving memory. Window 1's grid
// is one column wider than its area, so that it scrolls cell by cell.

namespace {

constexpr std::int64_t kColumns = 8;
constexpr std::int64_t kLines = 7;
constexpr std::uint8_t kBoth[] = {0, 1};

class Scrolling : public WindowTest {
  protected:
    void OpenBoth(std::int64_t depth) {
        const t_Font font = RandomFont(random, 7, 5);
        for (const std::uint8_t n : kBoth) Open(n, depth, kColumns + n, kLines, font);
    }

    // The same characters and colours in both windows.
    void Fill() {
        for (std::int64_t cell = 0; cell < kColumns * kLines; ++cell) {
            const std::uint8_t symbol = random.Byte();
            const std::uint8_t color = random.Byte();
            for (const std::uint8_t n : kBoth) {
                t_Windows[n].TextInverse = false;
                t_PrintSymbol(n, symbol, color, cell % kColumns + 1, cell / kColumns + 1);
            }
        }
    }

    // Characters and colours of the first columns, line by line.
    static std::vector<std::string> Cells(std::uint8_t n) {
        std::vector<std::string> lines(kLines);
        for (std::int64_t cell = 0; cell < kColumns * kLines; ++cell) {
            const auto [symbol, color] =
                toolkit::CellAt(t_Windows[n], cell % kColumns + 1, cell / kColumns + 1);
            lines.at(static_cast<std::size_t>(cell / kColumns)) +=
                t_HexText(symbol * 256 + color).substr(4) + " ";
        }
        return lines;
    }

    // The pixels of the first columns.
    static std::vector<std::uint8_t> Pixels(std::uint8_t n) {
        const platform::Picture picture = t_WindowImage(n).value();
        std::vector<std::uint8_t> pixels;
        for (std::int64_t y = 0; y < kLines * 5; ++y) {
            const auto row = picture.Bytes.begin() + y * picture.Width * 4;
            pixels.insert(pixels.end(), row, row + kColumns * 7 * 4);
        }
        return pixels;
    }

    Random random;
};

}  // namespace

TEST_F(Scrolling, ByMovingMemoryLooksAsCellByCell) {
    for (const std::int64_t depth : {1, 4, 8, 16, 24, 32}) {
        OpenBoth(depth);
        for (const auto& [first, last] : std::vector<std::pair<std::int64_t, std::int64_t>>{
                 {1, 7}, {1, 1}, {1, 2}, {2, 7}, {3, 5}, {6, 7}, {7, 7}, {2, 2}}) {
            for (const bool up : {true, false}) {
                SCOPED_TRACE(testing::Message() << depth << " " << first << " " << last << up);
                Fill();
                std::vector<std::string> expected = Cells(0);
                const auto area = expected.begin() + first - 1;
                const auto end = expected.begin() + last;
                up ? std::rotate(area, area + 1, end) : std::rotate(area, end - 1, end);
                std::string& blank = up ? end[-1] : *area;
                blank.clear();
                const bool inverse = random.Coin();
                while (std::ssize(blank) < 5 * kColumns) blank += inverse ? "20A5 " : "205A ";

                for (const std::uint8_t n : kBoth) {
                    t_Window& w = t_Windows[n];
                    w.TextLastColumn = kColumns;
                    w.TextFirstLine = first;
                    w.TextLastLine = last;
                    w.TextColor = 0x5A;
                    w.TextInverse = inverse;
                    EXPECT_EQ(Printed([&] { up ? t_ScrollUp(n) : t_ScrollDown(n); }), "");
                    EXPECT_EQ(w.TextInverse, inverse);
                    EXPECT_EQ(Cells(n), expected);
                }
                EXPECT_EQ(Pixels(1), Pixels(0));
            }
        }
    }
}
