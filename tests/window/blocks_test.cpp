#include "toolkit/window/blocks.h"

#include <algorithm>

#include "tests/support/block_model.h"
#include "tests/support/fixture.h"
#include "tests/support/random.h"

namespace {

constexpr std::int64_t kTop = 0xFF'FFFF;
class Blocks : public ToolkitTest {
  protected:
    Blocks() { t_InitMemory(); }

    // Any window in any way, with sizes at the limits now and then.
    WindowSetUp Anything() {
        constexpr std::int64_t kSides[] = {31, 32, 33, 81, 82, 95, 300, 8192, 8193};
        const bool extreme = random.Between(0, 11) == 0;
        const auto side = [&] {
            return extreme ? kSides[random.Between(0, 8)] : random.Between(32, 121);
        };
        WindowSetUp setUp;
        setUp.Window = static_cast<std::uint8_t>(random.Between(0, 7));
        setUp.BitDepth = random.OneOf({1, 4, 8, 16, 24, extreme ? 2 : 32});
        setUp.Width = side();
        setUp.Height = side();
        setUp.HasFont = random.Between(0, 3) != 0;
        setUp.HasView = random.Between(0, 39) != 0;
        return setUp;
    }

    Random random;
};

}  // namespace

TEST_F(Blocks, LieWithoutGapsAndKeepTheirContentWhateverIsSetUp) {
    int failures = 0;
    for (int sequence = 0; sequence < 120; ++sequence) {
        BlockModel model;
        t_HighMemory = kTop;
        t_Windows.fill(t_Window());
        desktop.ClearPrinted();
        const std::int64_t length = random.Between(1, 40);
        for (std::int64_t step = 0; step < length; ++step) {
            if (!model.Apply(Anything(), delegate)) ++failures;
            ASSERT_EQ(model.Difference(), "") << "sequence " << sequence << ", step " << step;
        }
    }
    EXPECT_GT(failures, 50);
    // Nothing was ever written below the lowest place where a block can begin.
    EXPECT_TRUE(std::all_of(t_Memory.data(), t_Memory.data() + 65'536 - 3'072,
                            [](std::uint8_t byte) { return byte == 255; }));
}

TEST_F(Blocks, BeginWhereTenBitsAndTheTwelfthAreClear) {
    // The mark, the bytes asked for, and the start.
    constexpr std::int64_t kRows[][3] = {{0xF'FFFF, 1024, 0xF'F400}, {kTop, 1, 0xFF'F400},
                                         {kTop, 3072, 0xFF'F400},    {kTop, 3073, 0xFF'F000},
                                         {kTop, 4097, 0xFF'E400},    {0x1'0FFF, 4095, 0x1'0000}};
    for (const auto& [mark, bytes, start] : kRows) {
        t_HighMemory = mark;
        const toolkit::MemoryBlock block = toolkit::HandOut(bytes);
        EXPECT_EQ(block.Start, start);
        EXPECT_EQ(block.End, mark);
        EXPECT_EQ(t_HighMemory, start - 1);
    }
}

TEST_F(Blocks, MoveUpWithOneLineEach) {
    const auto open = [](std::uint8_t window, std::int64_t height, const t_Font& font) {
        t_InitWindow(window, 8, true, 64, height, 0, 0, font, true);
    };
    open(7, 32, TestFont());  // above what is set up again
    open(0, 64, TestFont());
    open(5, 40, TestFont());
    open(2, 48, EmptyFont());
    EXPECT_EQ(Printed([&] { open(0, 32, EmptyFont()); }),
              "t_InitWindow: GraphicWindow #0 Start.\n"
              "t_InitWindow: GraphicWindow #0 high memory = $00FFE3FF, graphic block size to delete"
              " = $00001000.\n"
              "t_InitWindow: GraphicWindow #0 high memory = $00FFE3FF, text block size to delete"
              " = $00000400.\n"
              "t_InitWindow: GraphicWindow #0 moving graphic block for win #2$00FFB400...00FFBFFF"
              " to00FFC800...00FFD3FF\n"
              "t_InitWindow: GraphicWindow #0 moving graphic block for win #5$00FFC400...00FFCFFF"
              " to00FFD800...00FFE3FF\n"
              "t_InitWindow: GraphicWindow #0 moving text block for win #5$00FFC000...00FFC3FF"
              " to$00FFD400...00FFD7FF\n"
              "t_InitWindow: GraphicWindow #0 : 64 x 32 pixel x 8 bit = 2,00K video-memory"
              " = $00FFC000.\n"
              "t_InitWindow: GraphicWindow #0 End.\n");
}
