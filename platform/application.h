#pragma once

#include <chrono>
#include <cstdint>

namespace platform {

class Window;

/// What the application tells its delegate. Main thread. From applicationWillTerminate on it is
/// told nothing more.
class ApplicationClient {
  public:
    virtual ~ApplicationClient() = default;

    virtual void applicationWillFinishLaunching() = 0;
    virtual void applicationDidFinishLaunching() = 0;
    virtual void applicationDidBecomeActive() = 0;
    virtual void applicationWillResignActive() = 0;
    /// Called once, however the end was asked for and however often.
    virtual void applicationWillTerminate() = 0;
    /// Asked when the last visible window was hidden, whichever application is in front, after the
    /// current event and unless a window is shown by then. True: the application ends as by
    /// Terminate. False: it goes on, and lastWindowDidHide follows.
    virtual bool applicationShouldTerminateAfterLastWindowClosed() = 0;

    /// The close box was clicked. True: the platform hides the window itself.
    virtual bool windowShouldClose(Window& window) = 0;
    virtual void windowWillClose(Window& window) = 0;
    /// The content of the window has another size, given by the person or by the program.
    virtual void windowDidResize(Window& window) = 0;

    /// What stands above the content of titled windows turned out to be `height` points high.
    virtual void titleBarHeightDidChange(std::int64_t height) = 0;
    /// No window of the application is visible any more.
    virtual void lastWindowDidHide() = 0;
    /// Called once, a short while after the launch, when a program has had the time to show its
    /// first window. Not where nobody looks at windows.
    virtual void applicationDidSettle() = 0;
};

/// The running application.
class Application {
  public:
    virtual ~Application() = default;

    /// Launches (applicationWillFinishLaunching, applicationDidFinishLaunching), then serves events
    /// and the main queue until Terminate. Then the main queue is closed and the client's
    /// applicationWillTerminate runs. After that a platform may leave the process instead of
    /// returning: other threads may be anywhere. Where Run returns, its caller has nothing left to
    /// do but to Leave. A Terminate that came before ends the application after the launch. Main
    /// thread, once.
    virtual void Run(ApplicationClient& client) = 0;

    /// Asks the application to end and returns at once. Half a second later the process is gone,
    /// whatever its threads are doing. Any thread; further calls do nothing.
    virtual void Terminate() = 0;

    /// Ends the application now: closes the main queue, has applicationWillTerminate run and leaves
    /// the process. Main thread.
    [[noreturn]] virtual void TerminateNow() = 0;

    /// Serves events and the main queue for so long, at least once: what a wait on the main thread
    /// does instead of sleeping. Where time passes by itself it does not return once the end was
    /// asked for. Main thread.
    virtual void Serve(std::chrono::nanoseconds duration) = 0;

    /// The window that the person works in; nullptr when the application is not in front or none
    /// of its windows is. Which one it is after that window was hidden is up to the desktop.
    /// Optional: nullptr. Main thread.
    [[nodiscard]] virtual Window* ActiveWindow() { return nullptr; }

    /// Ends the process as it is: nothing is destroyed, other threads may be anywhere. Everything
    /// written to the output was written before. Any thread.
    [[noreturn]] static void Leave(int status = 0);
};

}  // namespace platform
