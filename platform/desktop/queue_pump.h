#pragma once

#include <QtCore/QObject>
#include <atomic>

namespace platform::desktop {

/// Serves the main queue from the event loop: each wake-up becomes one posted event, each event
/// runs one piece of work, so that the work and the window events take turns.
class QueuePump : public QObject {
  public:
    /// Opens the main queue for the calling thread.
    void Open();

    /// While held, no work runs; main thread. Release makes up for what was missed.
    void Hold() { held_ = true; }
    void Release();

    bool event(QEvent* event) override;

  private:
    void Wake();

    std::atomic<bool> posted_ = false;  // an event is on its way
    bool held_ = false;
    bool missed_ = false;
};

}  // namespace platform::desktop
