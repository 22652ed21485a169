#pragma once

#include <functional>
#include <mutex>
#include <utility>

namespace toolkit {

/// A function without arguments that a program replaces by assignment and the toolkit calls, on
/// whatever threads: t_MouseHandler = [] { ... }; An empty function stands for one that does
/// nothing. A call runs the function that was set when it began.
class Handler {
  public:
    explicit Handler(std::function<void()> initial = {}) : function_(std::move(initial)) {}

    Handler& operator=(std::function<void()> function) {
        const std::lock_guard lock(mutex_);
        function_ = std::move(function);
        return *this;
    }

    void operator()() const {
        std::unique_lock lock(mutex_);
        const std::function<void()> function = function_;
        lock.unlock();
        if (function) function();
    }

  private:
    mutable std::mutex mutex_;
    std::function<void()> function_;
};

}  // namespace toolkit
