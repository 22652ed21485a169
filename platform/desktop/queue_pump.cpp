#include "platform/desktop/queue_pump.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cstdint>

#include "platform/main_queue.h"

namespace platform::desktop {

void QueuePump::Open() {
    descriptor_ = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    notifier_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { Serve(); });
    TheMainQueue().Open([this] { Wake(); });
}

// Any thread.
void QueuePump::Wake() {
    if (woken_.exchange(true)) return;
    const std::uint64_t one = 1;
    static_cast<void>(!write(descriptor_, &one, sizeof one));  // can only fail when it is readable
}

void QueuePump::Serve() {
    std::uint64_t count = 0;
    static_cast<void>(!read(descriptor_, &count, sizeof count));
    // Cleared first: what is queued from here on wakes anew, also from inside the work.
    woken_ = false;
    TheMainQueue().RunNext();
}

}  // namespace platform::desktop
