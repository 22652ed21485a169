#include <thread>

#include "platform/thread.h"
#include "tests/support/fixture.h"
#include "toolkit/core/output.h"

namespace {

using toolkit::Joined;

const std::string kCalling = "t_MouseEventHandler: Calling program mouse handler asynchronously.\n";

// Window 1 with a picture of 64 x 40 pixels, 6 pixels of border beside it and 5 above and below.
class Mouse : public ToolkitTest {
  protected:
    Mouse() {
        t_AutoUpdateRunning = true;  // so that no refresh loop is among the background tasks
        t_InitWindow(1, 8, false, 64, 40, 6, 5, TestFont(), true);
    }

    std::string Press(std::uint8_t n, double x, double y, std::uint64_t held = 0) {
        return Printed([&] { View(n).MouseDown({x, y, 5, held}, false); });
    }
};

}  // namespace

TEST_F(Mouse, APressTellsItsPlaceInThePicture) {
    struct Row {
        double X, Y;
        std::int64_t ClickX, ClickY;
    };
    constexpr Row kRows[] = {
        {6, 45, 0, 0},      {5.99, 45, -1, 0},  {69.99, 6, 63, 39},   {70, 5.99, -2, -2},
        {6, 46, 0, -1},     {6.9, 45.9, 0, 0},  {0, 0, -1, -2},       {-0.5, 50, -1, -1},
        {-900, 30, -1, 15}, {1e300, 6, -2, 39}, {38, -1e300, 32, -2},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(Press(1, row.X, row.Y), Joined("t_MouseEventHandler: Graphic #1 window, X = ",
                                                 row.ClickX, ", Y = ", row.ClickY, "\n", kCalling));
        const t_Event event = t_MouseEventQueue.Take().value();
        EXPECT_EQ(event.ClickX, row.ClickX) << row.X;
        EXPECT_EQ(event.ClickY, row.ClickY) << row.Y;
    }
}

TEST_F(Mouse, APressBecomesAWholeEvent) {
    desktop.StartTime = 2.0005;
    Press(1, 7.5, 44.5, platform::kFnFlag | platform::kHelpFlag | 0xFFF);
    EXPECT_TRUE(t_MouseEventPending);
    t_Event expected;
    expected.Kind = 2;
    expected.Index = 5;
    expected.WindowX = 7;
    expected.WindowY = 44;
    expected.ClickX = expected.ClickY = 1;
    expected.Mods = 0xC0;
    expected.Window = 1;
    expected.Time = 2000;
    expected.HelpPressed = true;
    expected.FunctionKeyPressed = true;  // tells the fn modifier
    EXPECT_EQ(t_MouseEventQueue.Take(), expected);
    EXPECT_EQ(t_NextEvent(), -1);
}

TEST_F(Mouse, ButtonsAreHeldFromPressToRelease) {
    for (const bool ignore : {false, true}) {
        t_Windows[1].IgnoreEvents = ignore;
        for (const bool right : {false, true}) {
            for (const bool released : {false, true}) {  // either release lets both go
                View(1).MouseDown({}, right);
                EXPECT_EQ(t_MouseDown, !right);
                EXPECT_EQ(t_RightMouseDown, right);
                View(1).MouseUp(released);
                EXPECT_FALSE(t_MouseDown || t_RightMouseDown);
            }
        }
        EXPECT_EQ(t_MouseEventQueue.size(), 4);
    }
}

TEST_F(Mouse, WindowsThatAreNotOpenMakeNoEvent) {
    EXPECT_EQ(Press(4, 1, 1), "viewMouseDown: Graphic window (4) not initialized.\n");
    EXPECT_TRUE(t_MouseDown);
    t_Windows[1].IgnoreEvents = true;
    EXPECT_EQ(Press(1, 1, 1), "");
    EXPECT_FALSE(desktop.RunBackgroundTask());

    const std::string nowhere = "t_MouseEventHandler:  window, X = -3, Y = -3\n" + kCalling;
    int runs = 0;
    t_MouseHandler = [&runs] { ++runs; };
    const auto handle = [this](std::uint8_t n) {
        return Printed([n] { t_MouseEventHandler(n, {}, 3.7, -2.2); });
    };
    EXPECT_EQ(handle(8), "t_MouseEventHandler: Unknown window, AbsX = 3, AbsY = -2\n" + nowhere);
    EXPECT_EQ(handle(4), "t_MouseEventHandler: Window #4 not initialized.\n" + nowhere);
    t_ToolsReady = t_MouseDown = false;
    EXPECT_EQ(handle(1), "t_MouseEventHandler: Window #1 not initialized.\n" + nowhere);
    EXPECT_EQ(Press(1, 1, 1), "");
    EXPECT_TRUE(t_MouseDown);
    EXPECT_TRUE(t_MouseEventQueue.empty());
    EXPECT_FALSE(t_MouseEventPending);
    while (desktop.RunBackgroundTask()) {
    }
    EXPECT_EQ(runs, 3);
}

TEST_F(Mouse, TheProgramsHandlerRunsOnAThreadOfItsOwn) {
    Press(1, 1, 1);
    EXPECT_TRUE(desktop.RunBackgroundTask());  // does nothing as long as the program has none
    desktop.HoldBackground = false;
    std::string threads;
    t_MouseHandler = [&threads] { threads += platform::ThreadDescription(); };
    for (int i = 0; i < 2; ++i) {
        Press(1, 1, 1);
        while (platform::RunningThreads() != 0) std::this_thread::yield();
    }
    EXPECT_EQ(threads,
              "<thread>{number = 2, name = (null)}<thread>{number = 3, name = t_EventMouse}");
}

TEST_F(Mouse, TheCloseBoxHidesTheWindow) {
    desktop.Client = &delegate;
    for (std::uint8_t n = 0; n < 13; ++n) {
        Host(n).OrderFront();
        if (n == 12) Host(0).OrderFront();  // the main window stays when it is the last one
        EXPECT_EQ(Printed([&] { Host(n).ClickCloseBox(); }),
                  Joined("t_MouseEventPostCloseBoxClick: Window = ", n, "\n"));
        EXPECT_FALSE(Host(n).IsVisible());
    }
    EXPECT_TRUE(t_Windows[1].Initialized);
    EXPECT_TRUE(t_MouseEventQueue.empty());
    platform::headless::HeadlessWindow stranger(desktop, 10, 10);
    EXPECT_EQ(Printed([&] { stranger.ClickCloseBox(); }),
              "t_WindowVisible: Window does not exist.\n"
              "t_MouseEventPostCloseBoxClick: Window = 255\n");
}
