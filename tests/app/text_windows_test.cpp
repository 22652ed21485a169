#include "tests/support/fixture.h"

namespace {

using platform::Rect;
using TextWindows = ToolkitTest;

}  // namespace

TEST_F(TextWindows, FollowATitleBarThatIsHigherThanItWasTakenFor) {
    for (const std::uint8_t window : {std::uint8_t{0}, std::uint8_t{1}}) {
        t_InitWindow(window, 8, true, 64, 32, 0, 0, EmptyFont(), window == 0);
    }
    // From now on the scroll view is no measure of the title bar.
    t_WindowSize(8, -1, -1, 300, 200);
    delegate.titleBarHeightDidChange(40);
    EXPECT_EQ(t_TitleBarHeight, 40);
    EXPECT_EQ(t_Windows[0].TitleHeight, 40);
    EXPECT_EQ(t_Windows[1].TitleHeight, 0);
    t_TitleBarHeight = 0;  // not known so far
    delegate.titleBarHeightDidChange(30);
    EXPECT_EQ(t_Windows[1].TitleHeight, 0);
}

TEST_F(TextWindows, AreLaidOutForTheOneThatThePersonWorksIn) {
    struct Row {
        std::uint8_t Window;
        platform::ScrollView* Scroll;
        platform::Ruler* Ruler;
        Rect Area;  // in a frame of 900 x 700 points
    };
    const Row rows[] = {
        {8, delegate.PasteboardScrollView, nullptr, {10, 10, 880, 652}},
        {9, delegate.VirtualPrinterScrollView, delegate.VirtualPrinterRuler, {20, 20, 860, 617}},
        {10, delegate.SystemConsoleScrollView, delegate.SystemConsoleRuler, {20, 20, 860, 617}},
    };
    t_InitMemory();
    for (const Row& row : rows) {
        SCOPED_TRACE(int(row.Window));
        desktop.ActivateOther();
        Host(row.Window).SetFrame({5, 6, 900, 700});
        EXPECT_EQ(row.Scroll->Frame(), row.Area);  // the platform's doing
        const Rect moved = {1, 2, 3, 4};
        row.Scroll->SetFrame(moved);
        delegate.windowDidResize(Host(row.Window));  // without a main window nothing happens
        for (const std::uint8_t window : {std::uint8_t{0}, std::uint8_t{11}, std::uint8_t{12}}) {
            t_WindowFront(window);
            delegate.windowDidResize(Host(row.Window));
        }
        EXPECT_EQ(row.Scroll->Frame(), moved);
        t_WindowFront(row.Window);
        delegate.windowDidResize(Host(12));  // whichever window it was
        EXPECT_EQ(row.Scroll->Frame(), row.Area);
        if (row.Ruler != nullptr) {
            EXPECT_EQ(row.Ruler->Frame().Width, 852);
            EXPECT_EQ(row.Ruler->Frame().Height, 19);
        }
    }
}
