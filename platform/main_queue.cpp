#include "platform/main_queue.h"

#include <cstdlib>
#include <iostream>
#include <utility>

#include "platform/thread.h"

namespace platform {

void MainQueue::Open(std::function<void()> wake) {
    const std::lock_guard lock(mutex_);
    items_.clear();
    wake_ = std::move(wake);
    main_ = std::this_thread::get_id();
    open_ = true;
}

void MainQueue::Close() {
    std::deque<Item> dropped;
    {
        const std::lock_guard lock(mutex_);
        open_ = false;
        dropped.swap(items_);
        for (const Item& item : dropped) {
            if (item.Dropped != nullptr) *item.Dropped = true;
        }
    }
    changed_.notify_all();
}

bool MainQueue::OnMain() const {
    return std::this_thread::get_id() == main_;
}

bool MainQueue::IsOpen() const {
    const std::lock_guard lock(mutex_);
    return open_;
}

bool MainQueue::Sync(const std::function<void()>& work) {
    if (OnMain()) {
        work();
        return true;
    }
    bool done = false;
    bool dropped = false;
    std::unique_lock lock(mutex_);
    if (!open_) return false;
    items_.push_back({[&work] { work(); }, &done, &dropped});
    changed_.notify_all();
    wake_();
    changed_.wait(lock, [&] { return done || dropped; });
    return done;
}

void MainQueue::Async(std::function<void()> work) {
    const std::lock_guard lock(mutex_);
    if (!open_) return;
    items_.push_back({std::move(work)});
    changed_.notify_all();
    wake_();
}

bool MainQueue::RunNext() {
    std::unique_lock lock(mutex_);
    if (items_.empty()) return false;
    const Item item = std::move(items_.front());
    items_.pop_front();
    // A piece of work may serve events itself, as a modal panel does: the rest must not wait for
    // it.
    if (!items_.empty()) wake_();
    lock.unlock();
    item.Work();
    if (item.Done != nullptr) {
        lock.lock();
        *item.Done = true;
        lock.unlock();
        changed_.notify_all();
    }
    return true;
}

bool MainQueue::WaitForWork(std::chrono::nanoseconds wait) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, wait, [this] { return !items_.empty(); });
}

MainQueue& TheMainQueue() {
    static auto* const queue = new MainQueue;  // outlives every thread
    return *queue;
}

bool OnMain() {
    return TheMainQueue().OnMain();
}

void ExpectMain(std::string_view operation) {
    if (OnMain()) return;
    std::cerr << operation << ": called on another thread than the main thread.\n" << std::flush;
    std::abort();
}

void RunOnMain(const std::function<void()>& work) {
    if (!TheMainQueue().Sync(work)) Park();
}

void PostToMain(std::function<void()> work) {
    TheMainQueue().Async(std::move(work));
}

}  // namespace platform
