#include "platform/main_queue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

namespace {

// A queue that the test's thread serves.
class MainQueues : public testing::Test {
  protected:
    MainQueues() {
        queue.Open([this] { ++wakes; });
    }

    // Waits until there is work. Whoever is not woken finds it only when the time is over.
    void Await() {
        constexpr std::chrono::seconds kLongEnough(5);
        const auto end = std::chrono::steady_clock::now() + kLongEnough;
        ASSERT_TRUE(queue.WaitForWork(kLongEnough));
        EXPECT_LT(std::chrono::steady_clock::now(), end) << "not woken";
    }

    void RunOne() {
        Await();
        EXPECT_TRUE(queue.RunNext());
    }

    std::atomic<int> wakes = 0;
    platform::MainQueue queue;
};

}  // namespace

TEST_F(MainQueues, LetOtherThreadsWaitUntilTheirWorkIsDone) {
    int runs = 0;
    EXPECT_TRUE(queue.Sync([&] { ++runs; }));  // at once on its own thread
    EXPECT_EQ(wakes, 0);
    EXPECT_FALSE(queue.RunNext());
    std::thread other([&] {
        const std::thread::id waiting = std::this_thread::get_id();
        EXPECT_FALSE(queue.OnMain());
        EXPECT_TRUE(queue.Sync([&] {
            EXPECT_NE(std::this_thread::get_id(), waiting);
            ++runs;
        }));
        EXPECT_EQ(runs, 2);
    });
    RunOne();
    other.join();
    EXPECT_EQ(wakes, 1);
}

TEST_F(MainQueues, ServeWorkInItsOrderAlsoWhileAPieceRuns) {
    std::string order;
    queue.Async([&] {
        order += '(';
        RunOne();
        RunOne();
        order += ')';
    });
    queue.Async([&] { order += 'a'; });
    EXPECT_EQ(wakes, 2);
    std::thread other([&] { EXPECT_TRUE(queue.Sync([&] { order += 'b'; })); });
    EXPECT_EQ(order, "");
    EXPECT_TRUE(queue.RunNext());
    other.join();
    EXPECT_EQ(order, "(ab)");
    EXPECT_GE(wakes, 4);  // once more for what was left when the first piece was taken
}

TEST_F(MainQueues, WakeWhoeverWaitsForWork) {
    for (int round = 0; round < 50 && !HasFailure(); ++round) {
        std::thread other([this] {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));  // until somebody waits
            queue.Async([] {});
        });
        RunOne();
        other.join();
    }
}

TEST_F(MainQueues, TellWaitersThatTheyWereClosed) {
    bool ran = false;
    std::atomic<int> refused = 0;
    std::vector<std::thread> waiters;
    waiters.reserve(3);
    for (int i = 0; i < 3; ++i) {
        waiters.emplace_back([&] { refused += queue.Sync([&] { ran = true; }) ? 0 : 1; });
    }
    Await();
    queue.Close();
    for (std::thread& waiter : waiters) waiter.join();  // also those that came too late
    EXPECT_EQ(refused, 3);
    queue.Async([&] { ran = true; });
    EXPECT_FALSE(queue.RunNext());
    EXPECT_FALSE(ran);

    // Work that closes the queue was done all the same.
    queue.Open([] {});
    std::atomic<bool> done = false;
    std::thread last([&] { done = queue.Sync([&] { queue.Close(); }); });
    RunOne();
    last.join();
    EXPECT_TRUE(done);
}
