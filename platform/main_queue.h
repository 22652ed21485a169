#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string_view>
#include <thread>

// The way from any thread onto the main thread. Other threads may wait for the main thread; the
// main thread waits for none of them.

namespace platform {

/// Work for the main thread in the order in which it came. An implementation of the platform opens
/// the queue, takes a piece of work whenever it was woken, and closes the queue when the
/// application ends. Any thread unless said otherwise.
class MainQueue {
  public:
    /// Makes the calling thread the main thread and opens the queue. `wake` is called, on any
    /// thread, when there is work to take; it asks the main thread to call RunNext.
    void Open(std::function<void()> wake);

    /// Drops what is queued; who waits for it, and who comes later, is told that it did not run.
    void Close();

    [[nodiscard]] bool OnMain() const;

    /// True from Open to Close: the application has not ended.
    [[nodiscard]] bool IsOpen() const;

    /// Runs `work` on the main thread, at once when already there, and returns when it is done.
    /// False: the queue is closed and `work` did not run.
    [[nodiscard]] bool Sync(const std::function<void()>& work);

    /// Has `work` run on the main thread later and returns at once. Dropped when closed.
    void Async(std::function<void()> work);

    /// Takes the oldest work and runs it; false when there was none. Main thread; may be called
    /// again while a piece of work runs.
    bool RunNext();

    /// Waits until there is work or `wait` is over; false when there is none. Main thread.
    bool WaitForWork(std::chrono::nanoseconds wait);

  private:
    struct Item {
        std::function<void()> Work;
        bool* Done = nullptr;     // set when the work ran; nullptr when nobody waits
        bool* Dropped = nullptr;  // set when it will never run
    };

    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Item> items_;
    std::function<void()> wake_;
    std::atomic<std::thread::id> main_;
    bool open_ = false;
};

/// The process's queue.
MainQueue& TheMainQueue();

/// Whether the calling thread is the main thread.
[[nodiscard]] bool OnMain();

/// What every member that is for the main thread begins with: ends the process with the line
/// "<operation>: called on another thread than the main thread." when that is so. `operation` is
/// the member's __func__. Any thread.
void ExpectMain(std::string_view operation);

/// Runs `work` on the main thread, at once when already there; returns when it is done. Once the
/// application ends this does not return.
void RunOnMain(const std::function<void()>& work);

/// As RunOnMain, with a result.
template <typename Work>
[[nodiscard]] auto AskMain(Work work) {
    decltype(work()) answer{};
    RunOnMain([&] { answer = work(); });
    return answer;
}

/// Has `work` run on the main thread later; returns at once.
void PostToMain(std::function<void()> work);

}  // namespace platform
