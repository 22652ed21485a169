#include <limits>
#include <memory>

#include "app/run_program.h"
#include "platform/thread.h"
#include "tests/support/fixture.h"
#include "toolkit/core/output.h"

// From the start of the application to its end, with real threads; the test's thread is the main
// thread.

namespace {

using Strings = std::vector<std::string>;

class Launch : public ToolkitTest {
  protected:
    // Serves the main thread until every started thread has ended.
    void ServeThreads() {
        EXPECT_TRUE(desktop.ServeUntil([] { return platform::RunningThreads() == 0; }));
    }

    // Asks the application to end once every started thread has ended.
    void EndAfterThreads() {
        if (platform::RunningThreads() == 0) return desktop.Terminate();
        platform::PostToMain([this] { EndAfterThreads(); });
    }
};

constexpr std::string_view kLaunched =
    "applicationWillFinishLaunching: Called.\n"
    "applicationDidFinishLaunching: Start.\n"
    "initvxtools: Start.\n"
    "initvxtools: End.\n"
    "Program: Start.\n"
    "applicationDidFinishLaunching: End.\n";

}  // namespace

TEST_F(Launch, RunsTheProgramOnAThreadOfItsOwn) {
    Strings threads;
    int ends = 0;
    t_TerminateHandler = [&] {
        threads.push_back(platform::ThreadDescription());
        ++ends;
    };
    desktop.AboveContent = 31;
    RunProgram([&] {
        platform::RunOnMain([] {});  // the launch has ended
        t_InitWindow(0, 24, true, 160, 32, 0, 0, TestFont(), true);
        t_WindowFront(0);
        t_Print(0, "Hallo");
        threads.push_back(platform::ThreadDescription());
        EndAfterThreads();
        t_QuitProgram(0);
        ADD_FAILURE() << "the thread goes on";
    });
    const std::string printed = desktop.Printed();
    EXPECT_TRUE(printed.starts_with(std::string(kLaunched) +
                                    "t_InitWindow: GraphicWindow #0 Start.\n"
                                    "t_InitMemory: Start.\n"))
        << printed;
    EXPECT_TRUE(
        printed.ends_with("t_QuitProgram: Quitting current thread with message in window #0.\n"
                          "applicationWillTerminate: Called.\n"))
        << printed;
    EXPECT_EQ(threads, (Strings{"<thread>{number = 2, name = Main Program}",
                                "<thread>{number = 1, name = AppDelegate}"}));
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(t_TitleBarHeight, 31);
    EXPECT_EQ(t_ProgramStackSize, 0x4000'0000);
    EXPECT_TRUE(ScreenText(0).starts_with("Hallo   ")) << ScreenText(0);
    EXPECT_TRUE(View(0).Shown.has_value());
    delete static_cast<AppDelegate*>(static_cast<toolkit::Outlets*>(t_AppDelegate));
}

TEST_F(Launch, TheProgramMayEndTheApplication) {
    int ends = 0;
    t_TerminateHandler = [&ends] { ++ends; };
    AppDelegate own([this] {
        desktop.Terminate();
        desktop.Terminate();
    });
    desktop.Run(own);
    ServeThreads();
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(desktop.Printed(), std::string(kLaunched) + "applicationWillTerminate: Called.\n");
    EXPECT_FALSE(own.applicationShouldTerminateAfterLastWindowClosed());
}

TEST_F(Launch, QuittingLeavesAMessageWhereThereIsAWindow) {
    t_InitWindow(2, 24, true, 160, 32, 0, 0, TestFont(), true);
    t_WindowFront(2);
    t_Print(2, "\r\r\rABCDEFGHIJKLMNOPQRS");
    t_Windows[2].TextInverse = true;
    t_Windows[2].TextDisplayMode = 4;
    t_Windows[2].TextFirstColumn = t_Windows[2].TextFirstLine = 2;
    t_Windows[2].TextLastLine = 3;
    View(3).Attached = false;
    const std::string quitting = "t_QuitProgram: Quitting current thread";
    const auto quit = [this](std::uint8_t n) {
        return Printed([&] {
            startprocess([n] { t_QuitProgram(n); }, 0);
            ServeThreads();
        });
    };
    EXPECT_EQ(quit(2), quitting + " with message in window #2.\n");
    EXPECT_EQ(ScreenText(2).substr(63), "(Programm Ende)PQRS \n");
    EXPECT_EQ(ColorsOfLine(2, 4).substr(0, 9), "10 10 10 ");
    EXPECT_EQ(View(2).DisplayPasses, 1);
    for (const std::uint8_t n : {std::uint8_t{3}, std::uint8_t{13}, std::uint8_t{255}}) {
        EXPECT_EQ(quit(n), quitting + ".\n");
    }
    EXPECT_TRUE(quit(12).ends_with(quitting + " with message in window #12.\n"));
}

TEST_F(Launch, QuickStartsRunEachItsOwnEntry) {
    Strings entries;
    for (const std::string name : {"A", "B", "C"}) {
        startprocess(
            [&entries, name] {
                platform::RunOnMain(
                    [&] { entries.push_back(name + std::to_string(t_ProgramStackSize)); });
            },
            0x100'000);
        EXPECT_EQ(entries, Strings());
    }
    ServeThreads();
    EXPECT_EQ(entries, (Strings{"A1048576", "B1048576", "C1048576"}));
    EXPECT_FALSE(t_ProgramStartPending);
    // From the program thread, too.
    startprocess([&] { startprocess([&] { entries = {"D"}; }, 0); }, 0);
    ServeThreads();
    EXPECT_EQ(entries, Strings{"D"});
}

TEST_F(Launch, AThreadThatCannotBeMadeDoesNotBlockTheNext) {
    const auto witness = std::make_shared<int>();
    for (const std::int64_t stack : {std::int64_t{1}, std::numeric_limits<std::int64_t>::max()}) {
        const std::string printed = Printed([&] { startprocess([witness] {}, stack); });
        EXPECT_TRUE(printed.starts_with("startprocess: Thread could not be started: ")) << printed;
        EXPECT_TRUE(printed.ends_with("\n"));
        EXPECT_FALSE(t_ProgramStartPending);
    }
    bool ran = false;
    EXPECT_EQ(Printed([&] { startprocess([&ran] { ran = true; }, -1); }), "");
    ServeThreads();
    EXPECT_TRUE(ran);
    EXPECT_EQ(witness.use_count(), 1);
}

TEST_F(Launch, TheMainWindowAppearsWhenTheLastOneIsHidden) {
    desktop.Client = &delegate;
    t_WindowFront(8);
    t_WindowFront(9);
    bool served = false;
    const auto hide = [&](std::uint8_t n) {
        t_WindowVisible(n, false);
        platform::PostToMain([&served] { served = true; });
        served = false;
        EXPECT_TRUE(desktop.ServeUntil([&served] { return served; }));
    };
    hide(9);
    EXPECT_FALSE(Host(12).IsVisible());
    hide(8);
    EXPECT_TRUE(Host(12).IsVisible());
    EXPECT_EQ(t_FrontWindow(), 12);
    hide(12);
    EXPECT_EQ(t_FrontWindow(), 12);
}

TEST_F(Launch, AThreadsNumberIsReadFromItsDescription) {
    EXPECT_EQ(t_ThreadNumber(), 1);
    struct Row {
        std::string_view Description;
        std::int64_t Number;
    };
    constexpr Row kRows[] = {
        {"<thread>{number = 12, name = x}", 12},
        {"number =  7x9,", 7},
        {"number = - 3,", -3},
        {"number = 5", 0},
        {"number 5, name", 0},
        {"number = , name", 0},
        {"number =   ,", 0},
        {", number = 4 ,", 4},
        {"number = x5,", 0},
        {"", 0},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(toolkit::NumberInDescription(row.Description), row.Number) << row.Description;
    }
}
