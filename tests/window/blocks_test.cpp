#include "toolkit/window/blocks.h"

#include <algorithm>
#include <utility>

#include "tests/support/fixture.h"
#include "tests/support/random.h"

namespace {

constexpr std::int64_t kTop = 0xFF'FFFF;
constexpr std::uint8_t kNobody = 255;  // owner of blocks that no window gives back any more

struct ModelBlock {
    std::uint8_t Owner;
    bool Text;
    std::int64_t Size;
    std::vector<std::uint8_t> Content;
};

// The memory beside a list of its blocks from the highest address down: without gaps, so that a
// block's address follows from the sizes above it.
class Blocks : public ToolkitTest {
  protected:
    Blocks() { t_InitMemory(); }

    [[nodiscard]] std::int64_t Mark() const {
        std::int64_t mark = kTop;
        for (const ModelBlock& block : list) mark -= block.Size;
        return mark;
    }

    void Append(std::uint8_t owner, bool text, std::int64_t bytes) {
        if (bytes == 0) return;
        const std::int64_t start = (Mark() - bytes + 1) & 0xFFFF'F400;
        list.push_back({owner, text, Mark() - start + 1, random.Bytes(Mark() - start + 1)});
    }

    // Sets any window up in any way, here and in the list, and fills its new blocks.
    void SetUpAnything() {
        constexpr std::int64_t kDepths[] = {1, 4, 8, 16, 24, 32, 2};
        constexpr std::int64_t kSides[] = {31, 32, 33, 81, 82, 95, 300, 8192, 8193};
        const bool extreme = random.Between(0, 11) == 0;
        const auto side = [&] {
            return extreme ? kSides[random.Between(0, 8)] : random.Between(32, 121);
        };
        const auto window = static_cast<std::uint8_t>(random.Between(0, 7));
        const std::int64_t bitDepth = kDepths[random.Between(0, extreme ? 6 : 5)];
        std::int64_t width = side();
        std::int64_t height = side();
        const bool hasFont = random.Between(0, 3) != 0;
        const bool hasView = random.Between(0, 39) != 0;

        platform::View*& outlet = delegate.*toolkit::kViewOutlets[window];
        platform::View* const view = std::exchange(outlet, hasView ? outlet : nullptr);
        t_InitWindow(window, bitDepth, true, width, height, 0, 0,
                     hasFont ? TestFont() : EmptyFont(), true);
        outlet = view;

        std::erase_if(list, [&](const ModelBlock& block) { return block.Owner == window; });
        if (width < 32 || width > 8192) width = 1280;
        if (height < 32 || height > 8192) height = 800;
        if (bitDepth == 4 && width % 4 != 0) width = (width + 1) & ~3;
        if (bitDepth == 1) width = (width + 7) & ~7;
        const std::int64_t graphic = height * bitDepth * width / 8;
        const std::int64_t text = hasFont ? 2 * (width / 8) * (height / 8) : 0;
        const bool fits = bitDepth != 2 && graphic + text <= Mark() - 65'536;
        const t_Window& w = t_Windows[window];
        ASSERT_EQ(w.Initialized, fits && hasView);
        if (!w.Initialized) ++failures;
        if (!fits) return;
        for (const bool isText : {false, true}) {
            Append(hasView ? window : kNobody, isText, isText ? text : graphic);
            if (!hasView || (isText && text == 0)) continue;
            toolkit::WriteRun(isText ? w.TextMemoryStart : w.MemoryStart, list.back().Content);
        }
    }

    void ExpectMemoryLikeTheList() {
        using Range = std::pair<std::int64_t, std::int64_t>;
        Range graphic[8];
        Range text[8];
        std::fill_n(graphic, 8, Range(-1, -1));
        std::fill_n(text, 8, Range(-1, -1));
        std::int64_t end = kTop;
        for (const ModelBlock& block : list) {
            const std::int64_t start = end - block.Size + 1;
            if (block.Owner != kNobody) {
                (block.Text ? text : graphic)[block.Owner] = {start, end};
                ASSERT_TRUE(
                    std::equal(block.Content.begin(), block.Content.end(), t_Memory.data() + start))
                    << "content of window " << int(block.Owner);
            }
            end = start - 1;
        }
        ASSERT_EQ(t_HighMemory, end);
        for (std::size_t n = 0; n < 8; ++n) {
            const t_Window& w = t_Windows[n];
            ASSERT_EQ(Range(w.MemoryStart, w.MemoryEnd), graphic[n]) << n;
            ASSERT_EQ(Range(w.TextMemoryStart, w.TextMemoryEnd), text[n]) << n;
        }
    }

    Random random;
    std::vector<ModelBlock> list;
    int failures = 0;
};

}  // namespace

TEST_F(Blocks, LieWithoutGapsAndKeepTheirContentWhateverIsSetUp) {
    for (int sequence = 0; sequence < 120; ++sequence) {
        list.clear();
        t_HighMemory = kTop;
        t_Windows.fill(t_Window());
        desktop.ClearPrinted();
        const std::int64_t length = random.Between(1, 40);
        for (std::int64_t step = 0; step < length; ++step) {
            SCOPED_TRACE(testing::Message() << "sequence " << sequence << ", step " << step);
            ASSERT_NO_FATAL_FAILURE(SetUpAnything());
            ASSERT_NO_FATAL_FAILURE(ExpectMemoryLikeTheList());
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
        const toolkit::Block block = toolkit::HandOut(bytes);
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
