#pragma once

namespace platform::desktop {

/// A descriptor that any thread, and a signal handler, makes readable.
class WakeEvent {
  public:
    /// Ends as GiveUp does where no descriptor can be had.
    WakeEvent();
    WakeEvent(const WakeEvent&) = delete;
    WakeEvent& operator=(const WakeEvent&) = delete;

    [[nodiscard]] int Descriptor() const { return descriptor_; }
    /// Leaves errno as it is.
    void Set() const;
    void Clear() const;

  private:
    int descriptor_;
};

}  // namespace platform::desktop
