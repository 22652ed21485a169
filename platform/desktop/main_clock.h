#pragma once

#include <atomic>

#include "platform/parts/machine.h"

namespace platform::desktop {

/// The machine's clock. The main thread's first pause, before the program starts, is not slept
/// away: what the first window on the screen will need is made in it. Any thread.
class MainClock : public parts::MachineClock {
  public:
    void Sleep(std::chrono::nanoseconds duration) override;

  private:
    std::atomic<bool> prepared_ = false;
};

}  // namespace platform::desktop
