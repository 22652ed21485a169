#include <algorithm>
#include <utility>

#include "tests/support/fixture.h"
#include "tests/support/random.h"

// What the operations of all folders say about a window that they cannot work on. Some print other
// lines or check in another order (t_WindowImage, t_WindowUpdate, t_MouseEventHandler, viewKeyDown,
// viewMouseDown, redirected output): their headers say so, and their own tests show it.

namespace {

using enum toolkit::Need;

struct Operation {
    std::string_view Name;
    toolkit::Need Needs;
    void (*Run)(std::uint8_t n);
};

constexpr Operation kOperations[] = {
    // toolkit/text
    {"t_WindowFont", SetUp, [](std::uint8_t n) { t_WindowFont(n, TestFont()); }},
    {"t_PrintSymbol", TextBlock, [](std::uint8_t n) { t_PrintSymbol(n, 65, 0xF0, 1, 1); }},
    {"t_Print", TextBlock, [](std::uint8_t n) { t_Print(n, "A"); }},
    {"t_Print", TextBlock, [](std::uint8_t n) { t_Print(n, Text{{65}}); }},
    {"t_PrintChar", TextBlock, [](std::uint8_t n) { t_PrintChar(n, 65); }},
    {"t_PrintControl", TextBlock, [](std::uint8_t n) { t_PrintControl(n, 12); }},
    {"t_ApplyDisplayMode", TextBlock, [](std::uint8_t n) { t_ApplyDisplayMode(n, 65); }},
    {"t_PrintTab", TextBlock, [](std::uint8_t n) { t_PrintTab(n, 3, 65); }},
    {"t_PrintSpc", TextBlock, [](std::uint8_t n) { t_PrintSpc(n, 3); }},
    {"t_DisplayMode", SetUp, [](std::uint8_t n) { t_DisplayMode(n, 1); }},
    {"t_Normal", SetUp, t_Normal},
    {"t_Inverse", SetUp, t_Inverse},
    {"t_Reverse", SetUp, t_Reverse},
    {"t_Htab", TextBlock, [](std::uint8_t n) { t_Htab(n, 2); }},
    {"t_Vtab", TextBlock, [](std::uint8_t n) { t_Vtab(n, 2); }},
    {"t_CursorRight", TextBlock, t_CursorRight},
    {"t_CursorLeft", TextBlock, t_CursorLeft},
    {"t_CursorDown", TextBlock, t_CursorDown},
    {"t_CursorUp", TextBlock, t_CursorUp},
    {"t_Cr", TextBlock, t_Cr},
    {"t_CursorHome", TextBlock, t_CursorHome},
    {"t_CursorEnd", TextBlock, t_CursorEnd},
    {"t_ScrollUp", TextBlock, t_ScrollUp},
    {"t_ScrollDown", TextBlock, t_ScrollDown},
    {"t_ClearEndOfLine", TextBlock, t_ClearEndOfLine},
    {"t_ClearEndOfWindow", TextBlock, t_ClearEndOfWindow},
    {"t_CursorOn", TextBlock, t_CursorOn},
    {"t_CursorOff", TextBlock, t_CursorOff},
    {"t_CursorDraw", TextBlock, t_CursorDraw},
    {"t_Header", TextBlock, [](std::uint8_t n) { t_Header(n, "A", "B"); }},
    {"t_TextLine", TextBlock, t_TextLine},
    {"t_TextHline", TextBlock, [](std::uint8_t n) { t_TextHline(n, 1, 2, 1, 65); }},
    {"t_TextHline", TextBlock,
     [](std::uint8_t n) { t_TextHline(n, INT64_MAX - 1, INT64_MAX, 1, 65); }},
    {"t_RedirectOutput", SetUp, [](std::uint8_t n) { t_RedirectOutput(n, 1); }},
    // toolkit/graphics
    {"t_Color", SetUp, [](std::uint8_t n) { t_Color(n, 1); }},
    {"t_LoResMode", SetUp, [](std::uint8_t n) { t_LoResMode(n, 1); }},
    {"t_LoResOffset", SetUp, [](std::uint8_t n) { t_LoResOffset(n, 1, 1); }},
    {"t_Plot", TextBlock, [](std::uint8_t n) { t_Plot(n, 0, 0); }},
    {"t_PlotBlock", TextBlock, [](std::uint8_t n) { t_PlotBlock(n, 0, 0); }},
    {"t_PlotHalfSize", TextBlock, [](std::uint8_t n) { t_PlotHalfSize(n, 0, 0, true); }},
    {"t_Scrn", TextBlock, [](std::uint8_t n) { static_cast<void>(t_Scrn(n, 0, 0)); }},
    {"t_ColorBorder", SetUp, [](std::uint8_t n) { t_ColorBorder(n, 1); }},
    {"t_InvertRect", TextBlock, [](std::uint8_t n) { t_InvertRect(n, 1, 1, 1, 1); }},
    {"t_InvertRect", TextBlock,
     [](std::uint8_t n) { t_InvertRect(n, 1, 1, INT64_MAX, INT64_MAX); }},
    {"t_FullArea", SetUp, t_FullArea},
    {"t_GetScreen", TextBlock, [](std::uint8_t n) { static_cast<void>(t_GetScreen(n, "\r")); }},
    // toolkit/input
    {"t_InputForm", TextBlock, [](std::uint8_t n) { t_InputForm(n, "A", "B", true, 0, 5); }},
    {"t_InputEdit", TextBlock, [](std::uint8_t n) { t_InputEdit(n, 65); }},
    {"t_InputInsert", TextBlock, [](std::uint8_t n) { t_InputInsert(n, 65); }},
};

// The fields that say where a picture and its text lie, how large they are, and where one stands.
constexpr toolkit::Shared<std::int64_t> t_Window::*kFields[] = {
    &t_Window::BitDepth,        &t_Window::Width,         &t_Window::Height,
    &t_Window::BorderWidth,     &t_Window::BorderHeight,  &t_Window::TitleHeight,
    &t_Window::TextWidth,       &t_Window::TextHeight,    &t_Window::TextFirstColumn,
    &t_Window::TextLastColumn,  &t_Window::TextFirstLine, &t_Window::TextLastLine,
    &t_Window::TextHpos,        &t_Window::TextVpos,      &t_Window::TextDisplayMode,
    &t_Window::TextCursorLevel, &t_Window::InputHpos,     &t_Window::InputVpos,
    &t_Window::InputCursorPos,  &t_Window::LoResOffsetX,  &t_Window::LoResOffsetY,
    &t_Window::LoResMode};

class WindowFaults : public ToolkitTest {
  protected:
    // Every operation prints this line for window `n` and changes no record.
    void ExpectRefusals(std::uint8_t n, const std::string& reason) {
        const t_WindowTable before = t_Windows;
        for (const Operation& operation : kOperations) {
            EXPECT_EQ(Printed([&] { operation.Run(n); }),
                      std::string(operation.Name) + ": " + reason + "\n");
        }
        const t_DisplayCode code = t_ApplyDisplayMode(n, 65);
        EXPECT_TRUE(code.Code == -2 && !code.Inverse && code.Color == 0xF0);
        EXPECT_EQ(t_Scrn(n, 0, 0), -1);
        EXPECT_EQ(t_GetScreen(n, "\r"), "");
        EXPECT_EQ(t_InputForm(n, "A", "B", true, 0, 5), "");
        EXPECT_EQ(t_Windows, before);
    }
};

}  // namespace

TEST_F(WindowFaults, NumbersFromEightOnAreNoGraphicWindows) {
    for (const std::uint8_t n : {std::uint8_t{8}, std::uint8_t{255}}) {
        t_ToolsReady = false;
        ExpectRefusals(n, "Window is not a graphic window.");
        t_InitMemory();
        ExpectRefusals(n, "Window is not a graphic window.");
    }
}

TEST_F(WindowFaults, WindowsAreRefusedUntilTheToolkitAndTheyAreSetUp) {
    t_Windows[7].Initialized = true;
    t_Windows[7].TextMemoryStart = 0x10000;
    ExpectRefusals(7, "Window #7 not initialized.");
    t_InitMemory();
    ExpectRefusals(7, "Window #7 not initialized.");
}

TEST_F(WindowFaults, WindowsWithoutATextBlockTakeOnlyWhatNeedsNone) {
    t_InitWindow(3, 24, true, 64, 32, 0, 0, EmptyFont(), true);
    for (const Operation& operation : kOperations) {
        const std::string line = std::string(operation.Name) + ": Window #3 not initialized.\n";
        EXPECT_EQ(Printed([&] { operation.Run(3); }), operation.Needs == TextBlock ? line : "")
            << operation.Name;
    }
}

// A program may set any field to anything: what the operations then do stays inside the memory, and
// inside the window's blocks as long as the record names these.
TEST_F(WindowFaults, RecordsMayHoldAnything) {
    Random random;
    t_InitWindow(2, 8, true, 64, 64, 0, 0, EmptyFont(), true);
    t_InitWindow(1, 24, true, 64, 32, 0, 0, TestFont(), true);
    t_InitWindow(3, 8, true, 64, 64, 0, 0, EmptyFont(), true);
    t_Window& w = t_Windows[1];
    const t_Window asSetUp = w;
    const std::vector<std::uint8_t> above = PictureBytes(2);
    const std::vector<std::uint8_t> below = PictureBytes(3);
    for (int run = 0; run < 400; ++run) {
        w = asSetUp;
        for (int n = 0; n < 6; ++n) {
            w.*kFields[random.Between(0, std::ssize(kFields) - 1)] = random.OneOf(
                {INT64_MIN, INT64_MAX, INT64_MIN + 1, -1, 0, 1, 7, 40, 0x10000, 0xFFFFFF});
        }
        desktop.ClearPrinted();
        kOperations[random.Between(0, std::ssize(kOperations) - 1)].Run(1);
        static_cast<void>(t_WindowImage(1));
        static_cast<void>(t_WindowPos(1, random.Between(0, 30)));
        ASSERT_EQ(PictureBytes(2), above);
        ASSERT_EQ(PictureBytes(3), below);
    }
    // Blocks that a program names may lie anywhere.
    constexpr toolkit::Shared<std::int64_t> t_Window::*kAddresses[] = {
        &t_Window::MemoryStart, &t_Window::MemoryEnd, &t_Window::TextMemoryStart,
        &t_Window::TextMemoryEnd};
    for (int run = 0; run < 400; ++run) {
        w = asSetUp;
        w.*kAddresses[random.Between(0, 3)] = random.OneOf(
            {INT64_MIN, INT64_MAX, -1, 0, 0x10000, 0xFFFFFF, 0xFFFFF0, toolkit::kMemorySize});
        desktop.ClearPrinted();
        kOperations[random.Between(0, std::ssize(kOperations) - 1)].Run(1);
        static_cast<void>(t_WindowImage(1));
    }
    w = asSetUp;
    w.MemoryStart = INT64_MIN;
    w.TextMemoryEnd = INT64_MAX;
    t_InitWindow(1, 24, true, 64, 32, 0, 0, TestFont(), true);
    t_InitWindow(2, 24, true, 64, 32, 0, 0, TestFont(), true);
}

// With a grid and a text area as large as numbers allow, an operation ends after about as many
// cells as the window has or its widest line could have.
TEST_F(WindowFaults, LoopsOverCellsEnd) {
    t_InitWindow(1, 24, true, 64, 32, 0, 0, TestFont(), true);
    t_Window& w = t_Windows[1];
    const t_Window asSetUp = w;
    for (const std::int64_t first : {std::int64_t{1}, std::int64_t{2}, INT64_MAX - 1, INT64_MAX}) {
        for (const Operation& operation : kOperations) {
            w = asSetUp;
            for (auto* field : {&w.TextWidth, &w.TextHeight, &w.TextLastColumn, &w.TextLastLine}) {
                *field = INT64_MAX;
            }
            for (auto* field :
                 {&w.TextFirstColumn, &w.TextFirstLine, &w.TextHpos, &w.TextVpos, &w.InputHpos}) {
                *field = first;
            }
            const std::string faults = Printed([&] { operation.Run(1); });
            EXPECT_LE(std::count(faults.begin(), faults.end(), '\n'), 4 * 8192) << operation.Name;
        }
    }
}

TEST_F(WindowFaults, WindowsThatDoNotExistAreNotPlaced) {
    constexpr std::pair<std::string_view, void (*)(std::uint8_t)> kRows[] = {
        {"t_WindowPos", [](std::uint8_t n) { EXPECT_EQ(t_WindowPos(n, 12), 0); }},
        {"t_WindowSize", [](std::uint8_t n) { t_WindowSize(n, 1, 1, 50, 50); }},
        {"t_WindowCenter", t_WindowCenter},
        {"t_WindowFront", t_WindowFront},
        {"t_WindowVisible", [](std::uint8_t n) { t_WindowVisible(n, true); }},
        {"t_WindowTitle", [](std::uint8_t n) { t_WindowTitle(n, "A"); }},
        {"t_WindowTitleVisible", [](std::uint8_t n) { t_WindowTitleVisible(n, true); }},
    };
    constexpr std::uint8_t kMissing[] = {4, 12, 13, 255};
    t_InitMemory();
    delegate.t_View04 = nullptr;
    delegate.MainWindow = nullptr;
    for (const auto& [name, run] : kRows) {
        for (const std::uint8_t n : kMissing) {
            desktop.ClearPrinted();
            run(n);
            EXPECT_EQ(desktop.Printed(), std::string(name) + ": Window does not exist.\n");
        }
    }
    EXPECT_EQ(t_Windows[4], t_Window());
}
