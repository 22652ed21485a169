#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <thread>

#include "app/run_program.h"
#include "platform/thread.h"
#include "tests/support/fixture.h"
#include "toolkit/core/clock.h"

// The process ends, whatever the program's threads do at that time: each case in a process of its
// own, with real threads, ended by an alarm if it hangs.

namespace {

constexpr unsigned kWatchdogSeconds = 20;
constexpr int kRounds = 5;

class Ending : public ToolkitTest {
  protected:
    // Runs `program` as the whole application until it has ended, in a child process; its exit
    // status. The terminate handler runs exactly once, or the status is another one.
    int StatusOf(const std::function<void()>& program, bool atOnce) {
        const pid_t child = fork();
        if (child == 0) {
            alarm(kWatchdogSeconds);
            static std::atomic<int> ends = 0;
            t_TerminateHandler = [] { ++ends; };
            desktop.RealTime = true;
            desktop.HoldBackground = false;
            if (atOnce) platform::PostToMain([this] { desktop.Terminate(); });
            RunProgram(program);
            if (ends == 1) platform::Application::Leave();
            _exit(3);
        }
        int status = -1;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
    }

    // With `atOnce` the application is asked to end as soon as it was launched.
    void ExpectEnds(const char* state, const std::function<void()>& program, bool atOnce = false) {
        for (int round = 0; round < kRounds; ++round) {
            EXPECT_EQ(StatusOf(program, atOnce), 0) << state;
        }
    }

    // The application is asked to end in so many milliseconds, by its main thread.
    void QuitIn(std::int64_t milliseconds) {
        std::thread([this, milliseconds] {
            std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
            platform::PostToMain([this] { desktop.Terminate(); });
        }).detach();
    }

    static void OpenWindow() {
        t_InitWindow(0, 24, true, 64, 32, 0, 0, TestFont(), true);
        t_WindowFront(0);
    }
};

[[noreturn]] void AskMainForEver() {
    while (true) platform::RunOnMain([] {});
}

}  // namespace

TEST_F(Ending, DoesNotWaitForTheProgramThread) {
    ExpectEnds("computes", [this] {
        QuitIn(5);
        while (true) static_cast<void>(toolkit::Milliseconds());
    });
    ExpectEnds("draws", [this] {
        OpenWindow();
        QuitIn(5);
        while (true) t_Print(0, "Korvandi ");
    });
    ExpectEnds("is being made", AskMainForEver, true);
    ExpectEnds("sleeps", [this] {
        QuitIn(5);
        korvandi::Pause(600'000);
    });
    ExpectEnds("waits for a key", [this] {
        OpenWindow();
        QuitIn(5);
        static_cast<void>(t_WaitKey(0));
    });
}

TEST_F(Ending, DoesNotWaitForAProgramThatAsksTheMainThread) {
    ExpectEnds("asks the main thread again and again", [this] {
        QuitIn(2);
        AskMainForEver();
    });
    ExpectEnds("waits for the main thread, which is busy until it ends", [this] {
        platform::PostToMain([this] {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
            desktop.Terminate();
        });
        platform::RunOnMain([] {});
    });
    ExpectEnds("hears it twice", [this] {
        platform::PostToMain([this] {
            desktop.Terminate();
            desktop.Terminate();
        });
        AskMainForEver();
    });
}

TEST_F(Ending, ComesTooWhenTheProgramHasEndedOrHidItsWindows) {
    ExpectEnds("has ended", [this] {
        OpenWindow();
        QuitIn(250);  // after the closing message
        t_QuitProgram(0);
    });
    ExpectEnds("has hidden every window", [this] {
        OpenWindow();
        t_WindowVisible(0, false);
        QuitIn(2);
        AskMainForEver();
    });
    ExpectEnds("quits on the main thread", [] {
        platform::PostToMain([] { t_QuitProgram(0); });
        AskMainForEver();
    });
}

TEST_F(Ending, DoesNotWaitForWorkers) {
    ExpectEnds("workers ask the main thread", [this] {
        OpenWindow();
        for (int i = 0; i < 4; ++i) t_RunInBackground(AskMainForEver);
        QuitIn(5);
        static_cast<void>(t_WaitKey(0));
    });
}
