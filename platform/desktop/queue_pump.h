#pragma once

#include <QtCore/QSocketNotifier>
#include <atomic>
#include <memory>

#include "platform/desktop/wake_event.h"

namespace platform::desktop {

/// Serves the main queue from the event loop: one piece of work each time around the loop, so that
/// the work and the window events take turns. Other threads only write to a descriptor: no object
/// of the window library passes between threads.
class QueuePump {
  public:
    /// Opens the main queue for the calling thread.
    void Open();

    /// While held, no work runs; main thread.
    void Hold() { notifier_->setEnabled(false); }
    void Release() { notifier_->setEnabled(true); }

  private:
    void Wake();
    void Serve();

    WakeEvent work_;  // set while there is work to take
    std::atomic<bool> woken_ = false;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace platform::desktop
