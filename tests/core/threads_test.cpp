#include "toolkit/core/threads.h"

#include <atomic>
#include <limits>

#include "platform/thread.h"
#include "tests/support/fixture.h"
#include "toolkit/core/clock.h"

namespace {

using ProgramThreads = ToolkitTest;

}  // namespace

TEST_F(ProgramThreads, StartsOneThreadAfterTheOther) {
    std::atomic<std::int64_t> numbers = 0;
    for (const std::int64_t weight : {1, 256}) {
        startprocess([&numbers, weight] { numbers += weight * t_ThreadNumber(); }, 0);
    }
    ASSERT_TRUE(desktop.ServeUntil([&] { return numbers == 0x302; }));

    // An entry that no thread has taken yet stays, however long that lasts.
    bool firstRan = false;
    std::atomic<bool> secondRan = false;
    t_ProgramEntry = [&] { firstRan = true; };
    t_ProgramStartPending = true;
    int sleeps = 0;
    desktop.OnSleep = [&] {
        if (++sleeps != 3) return;
        t_ProgramEntry();
        t_ProgramStartPending = false;
    };
    const std::int64_t before = toolkit::Milliseconds();
    startprocess([&] { secondRan = true; }, 0);
    EXPECT_TRUE(firstRan);
    EXPECT_EQ(toolkit::Milliseconds() - before, 3 * 1 + 10);
    ASSERT_TRUE(desktop.ServeUntil([&] { return secondRan.load(); }));
    EXPECT_FALSE(t_ProgramStartPending);
}

TEST_F(ProgramThreads, StartsBothThreadsThatAreAskedForAtTheSameTime) {
    for (int run = 0; run < 400; ++run) {
        std::atomic<int> ran[2] = {};
        OnTwoThreads([&](int thread) { startprocess([&ran, thread] { ++ran[thread]; }, 0); });
        ASSERT_TRUE(desktop.ServeUntil([] { return platform::RunningThreads() == 0; }));
        ASSERT_TRUE(ran[0] == 1 && ran[1] == 1) << run;
    }
}

TEST_F(ProgramThreads, ReportsAThreadThatCannotBeMade) {
    const std::string line =
        Printed([] { startprocess([] {}, std::numeric_limits<std::int64_t>::max()); });
    EXPECT_TRUE(line.starts_with("startprocess: Thread could not be started: ")) << line;
    EXPECT_FALSE(t_ProgramStartPending);
}

TEST_F(ProgramThreads, ReadsTheNumberFromAThreadsDescription) {
    EXPECT_EQ(toolkit::NumberInDescription("<NSThread: 0x60>{number = 1, name = main}"), 1);
    EXPECT_EQ(toolkit::NumberInDescription("{number =   -  12x, name}"), -12);
    for (const std::string_view none : {"{number = 5}", "{name, number = 5}", "{nr = 5, name}",
                                        "{number = , name}", "{number = x1, name}", ""}) {
        EXPECT_EQ(toolkit::NumberInDescription(none), 0) << none;
    }
}
