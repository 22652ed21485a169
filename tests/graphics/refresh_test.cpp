#include "toolkit/graphics/refresh.h"

#include <thread>

#include "tests/support/fixture.h"
#include "toolkit/core/output.h"

namespace {

class Refreshing : public WindowTest {
  protected:
    // Runs the loop for so many milliseconds of the desktop's clock; `look` runs in each pause.
    std::string RunLoop(std::int64_t duration, const std::function<void()>& look) {
        const std::int64_t end = toolkit::Milliseconds() + duration;
        desktop.OnSleep = [&, end] {
            EXPECT_TRUE(t_AutoUpdateRunning);
            look();
            if (toolkit::Milliseconds() >= end) t_AutoUpdateRunning = false;
        };
        std::string printed = Printed(t_WindowAutoUpdateProcess);
        desktop.OnSleep = nullptr;
        return printed;
    }

    // Whether window `n` was asked for a frame since the last call.
    bool Asked(std::uint8_t n) { return std::exchange(View(n).NeedsDisplay, false); }
};

const std::string kStart = "t_WindowAutoUpdateProcess: Start.\n";
const std::string kEnd = "t_WindowAutoUpdateProcess: End.\n";

}  // namespace

TEST_F(Refreshing, AsksForAFrameAtMostAtTheRefreshRate) {
    for (const std::int64_t rate : {30, 100, 7, 1000}) {
        const std::int64_t interval = 1000 / rate;
        t_Windows[0].RefreshRate = rate;
        t_Windows[0].UpdateStarted = 0;
        std::vector<std::int64_t> requests;
        EXPECT_EQ(RunLoop(10 * interval,
                          [&] {
                              if (Asked(0)) requests.push_back(t_Windows[0].UpdateStarted);
                          }),
                  kStart + kEnd);
        ASSERT_GE(requests.size(), 8U) << rate;
        for (std::size_t i = 1; i < requests.size(); ++i) {
            EXPECT_GE(requests[i] - requests[i - 1], interval);
            EXPECT_LE(requests[i] - requests[i - 1], interval + 1);
        }
        EXPECT_FALSE(t_AutoUpdateRunning);
    }
}

TEST_F(Refreshing, AsksOnlyWindowsThatAreReadyForIt) {
    for (std::uint8_t n = 1; n < 6; ++n) Open(n, 8, 8, 4);
    for (std::uint8_t n = 0; n < 8; ++n) View(n).NeedsDisplay = false;
    t_Windows[0].VerticalBlank = false;
    t_Windows[1].AutoUpdate = false;
    t_Windows[2].Initialized = false;
    t_Windows[3].UpdateStarted = toolkit::Milliseconds();  // not due
    for (int run = 0; run < 2; ++run) {
        RunLoop(5, [] {});
        for (std::uint8_t n = 0; n < 8; ++n) {
            EXPECT_EQ(Asked(n), run == 0 ? n == 4 || n == 5 : n < 3) << int{n};
        }
        for (std::uint8_t n = 0; n < 3; ++n) EXPECT_EQ(t_Windows[n].UpdateStarted != 0, run != 0);
        t_Windows[0].VerticalBlank = t_Windows[1].AutoUpdate = t_Windows[2].Initialized = true;
    }
}

TEST_F(Refreshing, ReportsAMissingViewOnEveryPassAndGoesOn) {
    Open(1, 8, 8, 4);
    delegate.t_View00 = nullptr;
    std::string expected = kStart;
    const std::string printed = RunLoop(4, [&] {
        expected += "t_WindowAutoUpdateProcess: Window #0 view is nil, resource undefined.\n";
    });
    // One more line of the pass that asked window 1 and did not pause.
    expected += "t_WindowAutoUpdateProcess: Window #0 view is nil, resource undefined.\n";
    EXPECT_EQ(printed, expected + kEnd);
    EXPECT_EQ(t_Windows[0].UpdateStarted, 0);
    EXPECT_TRUE(Asked(1));
}

TEST_F(Refreshing, ARateOf0AsksOnEveryPassWithoutAPause) {
    Open(1, 8, 8, 4);
    t_Windows[0].RefreshRate = 0;
    delegate.t_View01 = nullptr;  // its line marks the passes
    desktop.OnSleep = [] { ADD_FAILURE() << "paused"; };
    int passes = 0;
    toolkit::SetOutputListener([&](std::string_view line) {
        if (line.find("Window #1") == std::string_view::npos) return;
        EXPECT_TRUE(Asked(0));
        if (++passes == 5) t_AutoUpdateRunning = false;
    });
    t_WindowAutoUpdateProcess();
    toolkit::SetOutputListener({});
    EXPECT_EQ(passes, 5);
}

TEST_F(Refreshing, EndsWithTheToolkitAndIsStartedOnce) {
    Open(1, 8, 8, 4);
    desktop.OnSleep = [] { t_ToolsReady = false; };
    EXPECT_EQ(Printed([this] { EXPECT_TRUE(desktop.RunBackgroundTask()); }), kStart + kEnd);
    EXPECT_FALSE(desktop.RunBackgroundTask());
    EXPECT_FALSE(t_AutoUpdateRunning);
    desktop.OnSleep = [] { ADD_FAILURE() << "paused"; };
    EXPECT_EQ(Printed(t_WindowAutoUpdateProcess), kStart + kEnd);
}

TEST_F(Refreshing, AProgramAsksForAFrameNowOrForTheNextDisplayPass) {
    t_Windows[0].AutoUpdate = false;
    t_Windows[0].VerticalBlank = false;
    t_WindowUpdate(0, true);
    EXPECT_TRUE(View(0).NeedsDisplay);
    EXPECT_EQ(View(0).DisplayPasses, 0);
    t_WindowUpdate(0, false);
    EXPECT_EQ(View(0).DisplayPasses, 1);
    EXPECT_EQ(View(0).Shown, t_WindowImage(0));
    EXPECT_EQ(t_Windows[0].UpdateStarted, 0);
    t_WindowUpdate(5, true);  // a view without a window
    EXPECT_TRUE(View(5).NeedsDisplay);

    EXPECT_EQ(Printed([] { t_WindowUpdate(8, false); }),
              "t_WindowUpdate: Window is not a graphic window.\n");
    delegate.t_View03 = nullptr;
    for (const bool deferred : {true, false}) {
        EXPECT_EQ(Printed([&] { t_WindowUpdate(3, deferred); }),
                  "t_WindowUpdate: Window #3 view is nil, resource undefined.\n");
    }
    t_ToolsReady = false;
    View(0).NeedsDisplay = false;
    EXPECT_EQ(Printed([] { t_WindowUpdate(8, false), t_WindowUpdate(0, true); }), "");
    EXPECT_FALSE(View(0).NeedsDisplay);
}

TEST_F(Refreshing, TheProgramWaitsUntilItsFrameIsShownWhileTheLoopRuns) {
    std::thread loop(t_WindowAutoUpdateProcess);
    EXPECT_TRUE(desktop.ServeUntil([] { return t_Windows[0].UpdateStarted != 0; }));
    std::atomic<bool> done = false;
    std::thread program([&done] {
        for (int i = 0; i < 20; ++i) {
            t_PrintChar(0, 'A');
            t_Windows[0].UpdateFinished = 0;
            t_WindowUpdate(0, false);
            EXPECT_NE(t_Windows[0].UpdateFinished, 0);
        }
        t_AutoUpdateRunning = false;
        done = true;
    });
    EXPECT_TRUE(desktop.ServeUntil([&] { return done && desktop.Printed().ends_with(kEnd); }));
    program.join();
    loop.join();
    EXPECT_EQ(View(0).Shown, t_WindowImage(0));
}
