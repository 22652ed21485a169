#include <string_view>

#include "tests/support/fixture.h"

// What every operation of this folder and of the lo-res graphics says about a window that it cannot
// work on.

namespace {

struct Operation {
    std::string_view Name;
    bool NeedsTextBlock;
    void (*Run)(std::uint8_t n);
};

void ExpectNoCode(std::uint8_t n) {
    const auto [code, inverse, color] = t_ApplyDisplayMode(n, 65);
    EXPECT_TRUE(code == -2 && !inverse && color == 0xF0);
}

constexpr Operation kOperations[] = {
    {"t_WindowFont", false, [](std::uint8_t n) { t_WindowFont(n, TestFont()); }},
    {"t_PrintSymbol", true, [](std::uint8_t n) { t_PrintSymbol(n, 65, 0xF0, 1, 1); }},
    {"t_Print", true, [](std::uint8_t n) { t_Print(n, "A"); }},
    {"t_Print", true, [](std::uint8_t n) { t_Print(n, Text{{65}}); }},
    {"t_PrintChar", true, [](std::uint8_t n) { t_PrintChar(n, 65); }},
    {"t_PrintControl", true, [](std::uint8_t n) { t_PrintControl(n, 12); }},
    {"t_ApplyDisplayMode", true, ExpectNoCode},
    {"t_PrintTab", true, [](std::uint8_t n) { t_PrintTab(n, 3, 65); }},
    {"t_PrintSpc", true, [](std::uint8_t n) { t_PrintSpc(n, 3); }},
    {"t_DisplayMode", false, [](std::uint8_t n) { t_DisplayMode(n, 1); }},
    {"t_Normal", false, [](std::uint8_t n) { t_Normal(n); }},
    {"t_Inverse", false, [](std::uint8_t n) { t_Inverse(n); }},
    {"t_Reverse", false, [](std::uint8_t n) { t_Reverse(n); }},
    {"t_Htab", true, [](std::uint8_t n) { t_Htab(n, 2); }},
    {"t_Vtab", true, [](std::uint8_t n) { t_Vtab(n, 2); }},
    {"t_CursorRight", true, [](std::uint8_t n) { t_CursorRight(n); }},
    {"t_CursorLeft", true, [](std::uint8_t n) { t_CursorLeft(n); }},
    {"t_CursorDown", true, [](std::uint8_t n) { t_CursorDown(n); }},
    {"t_CursorUp", true, [](std::uint8_t n) { t_CursorUp(n); }},
    {"t_Cr", true, [](std::uint8_t n) { t_Cr(n); }},
    {"t_CursorHome", true, [](std::uint8_t n) { t_CursorHome(n); }},
    {"t_CursorEnd", true, [](std::uint8_t n) { t_CursorEnd(n); }},
    {"t_ScrollUp", true, [](std::uint8_t n) { t_ScrollUp(n); }},
    {"t_ScrollDown", true, [](std::uint8_t n) { t_ScrollDown(n); }},
    {"t_ClearEndOfLine", true, [](std::uint8_t n) { t_ClearEndOfLine(n); }},
    {"t_ClearEndOfWindow", true, [](std::uint8_t n) { t_ClearEndOfWindow(n); }},
    {"t_CursorOn", true, [](std::uint8_t n) { t_CursorOn(n); }},
    {"t_CursorOff", true, [](std::uint8_t n) { t_CursorOff(n); }},
    {"t_CursorDraw", true, [](std::uint8_t n) { t_CursorDraw(n); }},
    {"t_Header", true, [](std::uint8_t n) { t_Header(n, "A", "B"); }},
    {"t_TextLine", true, [](std::uint8_t n) { t_TextLine(n); }},
    {"t_TextHline", true, [](std::uint8_t n) { t_TextHline(n, 1, 2, 1, 65); }},
    {"t_RedirectOutput", false, [](std::uint8_t n) { t_RedirectOutput(n, 1); }},
    {"t_Color", false, [](std::uint8_t n) { t_Color(n, 1); }},
    {"t_LoResMode", false, [](std::uint8_t n) { t_LoResMode(n, 1); }},
    {"t_LoResOffset", false, [](std::uint8_t n) { t_LoResOffset(n, 1, 1); }},
    {"t_Plot", true, [](std::uint8_t n) { t_Plot(n, 0, 0); }},
    {"t_PlotHalfSize", true, [](std::uint8_t n) { t_PlotHalfSize(n, 0, 0, true); }},
    {"t_Scrn", true, [](std::uint8_t n) { EXPECT_EQ(t_Scrn(n, 0, 0), -1); }},
    {"t_ColorBorder", false, [](std::uint8_t n) { t_ColorBorder(n, 1); }},
    {"t_InvertRect", true, [](std::uint8_t n) { t_InvertRect(n, 1, 1, 1, 1); }},
    {"t_FullArea", false, [](std::uint8_t n) { t_FullArea(n); }},
    {"t_GetScreen", true, [](std::uint8_t n) { EXPECT_EQ(t_GetScreen(n, "\r"), ""); }},
};

class WindowCheck : public ToolkitTest {
  protected:
    // Every operation prints this line for window `n` and changes no record.
    void ExpectRefusals(std::uint8_t n, const std::string& reason) {
        const t_WindowTable before = t_Windows;
        for (const Operation& operation : kOperations) {
            EXPECT_EQ(Printed([&] { operation.Run(n); }),
                      std::string(operation.Name) + ": " + reason + "\n");
        }
        EXPECT_EQ(t_Windows, before);
    }
};

}  // namespace

TEST_F(WindowCheck, NamesNumbersFromEightOnAndWindowsThatAreNotSetUp) {
    t_Windows[3].Initialized = true;
    t_Windows[3].TextMemoryStart = 0x10000;
    for (int ready = 0; ready < 2; ++ready) {
        ExpectRefusals(8, "Window is not a graphic window.");
        ExpectRefusals(255, "Window is not a graphic window.");
        ExpectRefusals(3, "Window #3 not initialized.");
        t_InitMemory();  // makes a new table, in which no window is set up
    }
}

TEST_F(WindowCheck, LetsWindowsWithoutTextBlockDoWhatNeedsNone) {
    t_InitWindow(3, 24, true, 64, 32, 0, 0, EmptyFont(), true);
    for (const Operation& operation : kOperations) {
        EXPECT_EQ(Printed([&] { operation.Run(3); }),
                  operation.NeedsTextBlock
                      ? std::string(operation.Name) + ": Window #3 not initialized.\n"
                      : "")
            << operation.Name;
    }
}
