#include "platform/desktop/queue_pump.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>

#include "platform/main_queue.h"

namespace platform::desktop {

namespace {

constexpr auto kWorkWaits = QEvent::User;

}  // namespace

void QueuePump::Open() {
    TheMainQueue().Open([this] { Wake(); });
}

void QueuePump::Release() {
    held_ = false;
    if (missed_) Wake();
    missed_ = false;
}

bool QueuePump::event(QEvent* event) {
    if (event->type() != kWorkWaits) return QObject::event(event);
    if (held_) {
        posted_ = false;
        missed_ = true;
        return true;
    }
    // Cleared first: what is queued from here on wakes anew, also from inside the work.
    posted_ = false;
    TheMainQueue().RunNext();
    return true;
}

// Any thread.
void QueuePump::Wake() {
    if (!posted_.exchange(true)) QCoreApplication::postEvent(this, new QEvent(kWorkWaits));
}

}  // namespace platform::desktop
