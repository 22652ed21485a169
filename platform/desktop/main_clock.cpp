#include "platform/desktop/main_clock.h"

#include <utility>

#include "platform/main_queue.h"

namespace platform::desktop {

MainClock::MainClock(std::function<void()> prepare) : prepare_(std::move(prepare)) {}

void MainClock::Sleep(std::chrono::nanoseconds duration) {
    // Asked in this order, a pause of another thread takes no lock once the program runs.
    if (!prepared_ && OnMain()) {
        prepared_ = true;
        const auto start = std::chrono::steady_clock::now();
        prepare_();
        duration -= std::chrono::steady_clock::now() - start;
    }
    MachineClock::Sleep(duration);
}

}  // namespace platform::desktop
