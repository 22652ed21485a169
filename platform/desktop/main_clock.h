#pragma once

#include <atomic>
#include <chrono>
#include <functional>

#include "platform/parts/machine.h"

namespace platform::desktop {

/// The machine's clock. The main thread's first pause, before the program starts, is not slept
/// away: what the first window on the screen will need is made in it. Any thread.
class MainClock : public parts::MachineClock {
  public:
    /// `prepare` makes it, on the main thread.
    explicit MainClock(std::function<void()> prepare);

    void Sleep(std::chrono::nanoseconds duration) override;

  private:
    std::function<void()> prepare_;
    std::atomic<bool> prepared_ = false;
};

}  // namespace platform::desktop
