#include "platform/desktop/queue_pump.h"

#include "platform/main_queue.h"

namespace platform::desktop {

void QueuePump::Open() {
    notifier_ = std::make_unique<QSocketNotifier>(work_.Descriptor(), QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { Serve(); });
    TheMainQueue().Open([this] { Wake(); });
}

// Any thread.
void QueuePump::Wake() {
    if (!woken_.exchange(true)) work_.Set();
}

void QueuePump::Serve() {
    work_.Clear();
    // Cleared first: what is queued from here on wakes anew, also from inside the work.
    woken_ = false;
    TheMainQueue().RunNext();
}

}  // namespace platform::desktop
