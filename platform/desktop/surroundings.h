#pragma once

// What the window library takes for granted and waits for without end, or crashes without, where it
// is missing. Asked before it runs. Main thread.

namespace platform::desktop {

/// Prints why the program cannot run, from errno, and ends the process with status 1.
[[noreturn]] void GiveUp();

/// Makes sure that the program can open the descriptors and start the threads without which no
/// window appears; otherwise gives up. Before anything else is opened or started.
void RequireDescriptorsAndThreads();

/// Whether some threads could not be had beside those. Then the window library is to start its own
/// ones first.
[[nodiscard]] bool ThreadsAreScarce();

/// The desktop session's message bus. The window library asks it for services that a program can do
/// without, accessibility among them, and waits for its answer.
class SessionBus {
  public:
    /// Says hello to the bus and returns at once.
    SessionBus();
    ~SessionBus();
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;

    /// A bus that has not answered by now, or within a moment, is no bus for this process: prints a
    /// line.
    void LeaveOutUnlessAlive();

  private:
    [[nodiscard]] bool Answers() const;

    int socket_ = -1;  // none where no bus of the usual kind is named
};

}  // namespace platform::desktop
