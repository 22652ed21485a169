#include <atomic>
#include <limits>
#include <thread>

#include "app/interface.h"
#include "app/run_program.h"
#include "platform/thread.h"
#include "tests/support/fixture.h"

// From the start of the application to its end, with real threads; the test's thread is the main
// thread.

namespace {

class Launch : public ToolkitTest {
  protected:
    // Runs `entry` as the program would be and serves it until its thread has ended.
    std::string PrintedBy(std::function<void()> entry, std::int64_t stackSize = 0) {
        return Printed([&] {
            startprocess(std::move(entry), stackSize);
            ServeThreads();
        });
    }

    void ServeThreads() {
        EXPECT_TRUE(desktop.ServeUntil([] { return platform::RunningThreads() == 0; }));
    }

    // Asks the application to end once every started thread has ended.
    void EndAfterThreads() {
        if (platform::RunningThreads() == 0) return desktop.Terminate();
        platform::PostToMain([this] { EndAfterThreads(); });
    }
};

const std::string kLaunched =
    "applicationWillFinishLaunching: Called.\n"
    "applicationDidFinishLaunching: Start.\n"
    "initvxtools: Start.\n"
    "initvxtools: End.\n"
    "Program: Start.\n"
    "applicationDidFinishLaunching: End.\n";
const std::string kEnd = "applicationWillTerminate: Called.\n";
const std::string kQuitting = "t_QuitProgram: Quitting current thread";

}  // namespace

TEST_F(Launch, RunsTheProgramOnAThreadOfItsOwn) {
    std::string threads;
    t_TerminateHandler = [&] { threads += platform::ThreadDescription(); };
    desktop.AboveContent = 31;
    RunProgram([&] {
        platform::RunOnMain([] {});  // the launch has ended
        t_InitWindow(0, 24, true, 160, 32, 0, 0, TestFont(), true);
        t_WindowFront(0);
        t_Print(0, "Hallo");
        threads += platform::ThreadDescription();
        EndAfterThreads();
        t_QuitProgram(0);
    });
    const std::string printed = desktop.Printed();
    EXPECT_TRUE(printed.starts_with(kLaunched + "t_InitWindow: GraphicWindow #0 Start.\n"
                                                "t_InitMemory: Start.\n"))
        << printed;
    EXPECT_TRUE(printed.ends_with(kQuitting + " with message in window #0.\n" + kEnd)) << printed;
    EXPECT_EQ(threads,
              "<thread>{number = 2, name = Main Program}<thread>{number = 1, name = AppDelegate}");
    EXPECT_EQ(t_TitleBarHeight, 31);
    EXPECT_EQ(t_ProgramStackSize, 0x4000'0000);
    EXPECT_TRUE(ScreenText(0).starts_with("Hallo   ")) << ScreenText(0);
    EXPECT_TRUE(View(0).Shown.has_value());
    delete static_cast<AppDelegate*>(static_cast<toolkit::Outlets*>(t_AppDelegate));
}

TEST_F(Launch, EndsOnceHoweverOftenTheProgramAsks) {
    int ends = 0;
    t_TerminateHandler = [&ends] { ++ends; };
    AppDelegate own([this] {
        desktop.Terminate();
        desktop.Terminate();
    });
    desktop.Run(own);
    ServeThreads();
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(desktop.Printed(), kLaunched + kEnd);
    EXPECT_FALSE(own.applicationShouldTerminateAfterLastWindowClosed());
}

TEST_F(Launch, QuittingLeavesAMessageWhereThereIsAWindow) {
    t_InitWindow(2, 24, true, 160, 32, 0, 0, TestFont(), true);
    t_WindowFront(2);
    t_Print(2, "\r\r\rABCDEFGHIJKLMNOPQRS");
    t_Window& w = t_Windows[2];
    w.TextInverse = true;
    w.TextDisplayMode = 4;
    w.TextFirstColumn = w.TextFirstLine = 2;
    w.TextLastLine = 3;
    bool wentOn = false;
    EXPECT_EQ(desktop.DisplayPass(), 1);
    EXPECT_EQ(PrintedBy([&] {
                  t_QuitProgram(2);
                  wentOn = true;
              }),
              kQuitting + " with message in window #2.\n");
    EXPECT_FALSE(wentOn);
    EXPECT_EQ(ScreenText(2).substr(63), "(Programm Ende)PQRS \n");
    EXPECT_EQ(ColorsOfLine(2, 4).substr(0, 6), "10 10 ");
    EXPECT_EQ(View(2).DisplayPasses, 2);
    EXPECT_DOUBLE_EQ(desktop.Now(), desktop.StartTime + 0.11);
    View(3).Attached = false;
    for (const std::uint8_t n : {std::uint8_t{3}, std::uint8_t{13}, toolkit::kNoWindow}) {
        EXPECT_EQ(PrintedBy([n] { t_QuitProgram(n); }), kQuitting + ".\n");
    }
    EXPECT_TRUE(PrintedBy([] {
                    t_QuitProgram(12);
                }).ends_with(kQuitting + " with message in window #12.\n"));
}

TEST_F(Launch, AThreadThatCannotBeMadeDoesNotBlockTheNext) {
    const std::string printed = PrintedBy([] {}, std::numeric_limits<std::int64_t>::max());
    EXPECT_TRUE(printed.starts_with("startprocess: Thread could not be started: ")) << printed;
    bool ran = false;
    EXPECT_EQ(PrintedBy([&ran] { ran = true; }, -1), "");
    EXPECT_TRUE(ran);
}

TEST_F(Launch, TheMainWindowAppearsWhenTheLastOneIsHidden) {
    desktop.Client = &delegate;
    t_WindowFront(8);
    t_WindowFront(9);
    for (const std::uint8_t n : {std::uint8_t{9}, std::uint8_t{8}, std::uint8_t{12}}) {
        const bool isLast = n != 9;
        if (n == 8) desktop.ActivateOther();  // whichever application is in front
        t_WindowVisible(n, false);
        bool served = false;
        platform::PostToMain([&served] { served = true; });
        EXPECT_TRUE(desktop.ServeUntil([&served] { return served; }));
        EXPECT_EQ(Host(12).IsVisible(), isLast);
        EXPECT_EQ(t_FrontWindow(), isLast ? 12 : 8);
    }
}

TEST_F(Launch, TheMainWindowTellsWhatBecameOfAProgramWithoutWindows) {
    struct Row {
        std::function<void()> Program;
        const char* Notice;
    };
    const Row rows[] = {
        {[] {}, "Das Programm ist zu Ende, ohne ein Fenster geöffnet zu haben. "},
        {[] { t_InitWindow(0, 24, 80, 25, 16, "missing.font"); },
         "Das Programm ist zu Ende, ohne "},
        {[] { t_QuitProgram(255); }, "Das Programm ist zu Ende, ohne "},
        {[this] {
             t_InitWindow(0, 24, true, 160, 32, 0, 0, TestFont(), true);
             t_WindowFront(0);
             platform::RunOnMain([this] { EXPECT_EQ(delegate.Notice(), ""); });
             t_WindowVisible(0, false);
         },
         "Das Programm ist zu Ende. "},
    };
    for (const Row& row : rows) {
        AppDelegate own(row.Program);
        BuildInterface(own);
        EXPECT_EQ(own.Notice(), "");
        own.TheRun().Start();
        EXPECT_TRUE(own.Notice().starts_with("Das Programm läuft, hat aber noch kein Fenster "));
        EXPECT_TRUE(desktop.ServeUntil([&] { return own.MainWindow->IsVisible(); }));
        EXPECT_TRUE(own.TheRun().IsOver());
        EXPECT_TRUE(own.Notice().starts_with(row.Notice)) << own.Notice();
        EXPECT_TRUE(own.Notice().ends_with("Einzelheiten stehen in der Systemkonsole."));
        ServeThreads();
    }
}

TEST_F(Launch, AProgramRunsAgainOnceItIsOver) {
    std::atomic<int> runs = 0;
    std::atomic<bool> goOn = false;
    AppDelegate own([&] {
        ++runs;
        while (!goOn) std::this_thread::yield();
    });
    for (int run = 1; run <= 2; ++run) {
        own.TheRun().Start();
        own.TheRun().Start();  // nothing while it is running
        goOn = true;
        EXPECT_TRUE(desktop.ServeUntil([&] { return own.TheRun().IsOver(); }));
        goOn = false;
        EXPECT_EQ(runs, run);
    }
    ServeThreads();
}

TEST_F(Launch, NamesTheFoldersThatHoldNoResources) {
    desktop.ResourcesSearched = {"/here", "/there"};
    AppDelegate own([this] { desktop.Terminate(); });
    desktop.Run(own);
    EXPECT_NE(desktop.Printed().find(
                  "applicationDidFinishLaunching: Resources not found in /here, /there.\n"),
              std::string::npos);
    EXPECT_TRUE(own.Notice().starts_with(
        "Die Schriften und Töne wurden nicht gefunden. Gesucht wurde in /here, /there. "));
    ServeThreads();
}

TEST_F(Launch, TheLastCloseBoxAsksWhetherToQuit) {
    desktop.Client = &delegate;
    const auto close = [this](std::uint8_t window) {
        desktop.AlertsRun.clear();
        Host(window).ClickCloseBox();
        bool served = false;
        platform::PostToMain([&served] { served = true; });
        EXPECT_TRUE(desktop.ServeUntil([&served] { return served; }));
        return desktop.AlertsRun.size();
    };
    t_WindowFront(9);
    t_WindowFront(8);
    EXPECT_EQ(close(8), 0U);
    EXPECT_EQ(close(9), 1U);
    EXPECT_FALSE(Host(9).IsVisible());
    EXPECT_EQ(t_FrontWindow(), 12);
    desktop.ClearPrinted();
    EXPECT_EQ(close(12), 1U);
    EXPECT_TRUE(Host(12).IsVisible());
    EXPECT_EQ(desktop.Printed(), "");
    EXPECT_EQ(desktop.AlertsRun.front().Message, "Möchten Sie Korvandi beenden?");
    desktop.AlertAnswers = {0};
    EXPECT_EQ(close(12), 1U);
    desktop.Run(delegate);  // ends after the launch
    ServeThreads();
}

// Both waits need the main thread, which waits itself.
TEST_F(Launch, WaitsOnTheMainThreadServeIt) {
    t_ProgramStartPending = true;
    platform::PostToMain([] { t_ProgramStartPending = false; });
    bool ran = false;
    EXPECT_EQ(PrintedBy([&ran] { ran = true; }), "");
    EXPECT_TRUE(ran);
    t_MemoryStarted = true;
    platform::PostToMain([] { t_ToolsReady = true; });
    toolkit::WaitForTools();
    platform::PostToMain([] { Type("x"); });
    EXPECT_EQ(t_WaitKey(8), "x");
    TypeCodes({19});
    platform::PostToMain([] { Type("y"); });
    EXPECT_TRUE(t_PrintPause(19, true));
}

TEST_F(Launch, ARefreshLoopThatCannotBeStartedIsStartedByTheNextWindow) {
    int tries = 0;
    platform::SetBackgroundStarter([&tries](const std::function<void()>&) -> std::string {
        return ++tries == 1 ? "no more threads" : "";
    });
    const auto open = [] { t_InitWindow(0, 24, true, 64, 32, 0, 0, TestFont(), true); };
    EXPECT_NE(Printed(open).find("t_RunInBackground: Thread could not be started: no more threads"),
              std::string::npos);
    EXPECT_FALSE(t_AutoUpdateRunning);
    open();
    EXPECT_EQ(tries, 2);
    EXPECT_TRUE(t_AutoUpdateRunning);
}
