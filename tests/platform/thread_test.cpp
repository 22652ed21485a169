#include "platform/thread.h"

#include <gtest/gtest.h>
#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <future>
#include <limits>
#include <memory>
#include <thread>

using platform::StartThread;

namespace {

// Runs `body` on a thread of its own and waits for it.
template <typename Body>
auto OnThread(Body body, std::size_t stackSize = 0) {
    const auto promise = std::make_shared<std::promise<decltype(body())>>();
    EXPECT_EQ(StartThread([promise, body] { promise->set_value(body()); }, stackSize), "");
    return promise->get_future().get();
}

std::size_t OwnStackSize() {
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0) return 0;
    std::size_t size = 0;
    pthread_attr_getstacksize(&attributes, &size);
    pthread_attr_destroy(&attributes);
    return size;
}

// Ends the calling thread; what the function holds says so while it is destroyed.
void EndThread(std::atomic<pid_t>* ending) {
    const std::shared_ptr<void> witness(nullptr, [ending](void*) { *ending = gettid(); });
    platform::EndThread();
}

void EndInsideNoexcept(std::atomic<pid_t>* ending) noexcept {
    EndThread(ending);
}

void EndInsideCatch(std::atomic<pid_t>* ending) {
    try {
        EndThread(ending);
    } catch (...) {
        *ending = gettid();
    }
}

// Whether a thread of this process stands still.
bool StandsStill(pid_t thread) {
    std::ifstream file("/proc/self/task/" + std::to_string(thread) + "/stat");
    const std::string line(std::istreambuf_iterator<char>(file), {});
    return line.find(") S ") != std::string::npos;
}

// Ends a thread inside `function` and leaves the process with status 0 once it stands still.
[[noreturn]] void EndInside(void (*function)(std::atomic<pid_t>*)) {
    std::atomic<pid_t> ending = 0;
    static_cast<void>(StartThread([&] { function(&ending); }, 0));
    while (ending == 0) std::this_thread::yield();
    while (!StandsStill(ending)) std::this_thread::yield();
    std::_Exit(platform::RunningThreads() == 1 ? 0 : 3);
}

}  // namespace

TEST(Threads, CarryNumbersAndNames) {
    platform::RestartThreadNumbers();
    const auto shown = [] {
        char name[16] = {};
        pthread_getname_np(pthread_self(), name, sizeof name);
        return std::string(name);
    };
    const auto describe = [] { return platform::ThreadDescription(); };
    const auto named = [&shown] {
        platform::NameThread("A name of more than fifteen bytes");
        return platform::ThreadDescription() + shown() + "|" + OnThread(shown);
    };
    EXPECT_TRUE(platform::ThreadDescription().starts_with("<thread>{number = 1, name = "));
    EXPECT_EQ(OnThread(describe), "<thread>{number = 2, name = (null)}");
    EXPECT_EQ(OnThread(named),
              "<thread>{number = 3, name = A name of more than fifteen bytes}A name of more |"
              "Thread 4");
    std::string foreign;
    std::thread([&] { foreign = describe(); }).join();
    EXPECT_EQ(foreign, "<thread>{number = 0, name = (null)}");
    EXPECT_EQ(OnThread(describe), "<thread>{number = 5, name = (null)}");
}

TEST(Threads, HaveTheStackThatWasAskedFor) {
    constexpr std::size_t kGibibyte = 0x4000'0000;
    EXPECT_GE(OnThread(OwnStackSize, kGibibyte), kGibibyte);
    EXPECT_GT(OnThread(OwnStackSize, 1), 0U);  // as small as there are
    EXPECT_NE(StartThread([] {}, std::numeric_limits<std::size_t>::max() / 2), "");
}

TEST(Threads, EndAnywhereAndDestroyWhatTheyHold) {
    auto held = std::make_shared<int>();
    const std::weak_ptr<int> watched = held;
    std::atomic<pid_t> ending = 0;
    std::atomic<bool> wentOn = false;
    auto body = [&ending, &wentOn, held = std::move(held)] {
        EndThread(&ending);
        wentOn = true;
    };
    EXPECT_EQ(StartThread(std::move(body), 0), "");
    while (!watched.expired()) std::this_thread::yield();
    EXPECT_NE(ending, 0);
    EXPECT_FALSE(wentOn);
}

TEST(ThreadsDeathTest, StopWithoutTheProcessWhereTheyCannotEnd) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(EndInside(EndInsideNoexcept), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(EndInside(EndInsideCatch), testing::ExitedWithCode(0), "");
}
