#pragma once

#include <chrono>
#include <cstdint>

namespace platform {

class Window;

/// What the application tells its delegate. Main thread.
class ApplicationClient {
  public:
    virtual ~ApplicationClient() = default;

    virtual void applicationWillFinishLaunching() = 0;
    virtual void applicationDidFinishLaunching() = 0;
    virtual void applicationDidBecomeActive() = 0;
    virtual void applicationWillResignActive() = 0;
    /// Called once, however the end was asked for and however often.
    virtual void applicationWillTerminate() = 0;
    /// False: the application goes on after its last window was closed.
    virtual bool applicationShouldTerminateAfterLastWindowClosed() = 0;

    /// The close box was clicked. True: the platform hides the window itself.
    virtual bool windowShouldClose(Window& window) = 0;
    virtual void windowWillClose(Window& window) = 0;
    /// The person or the program gave the window another size.
    virtual void windowDidResize(Window& window) = 0;

    /// What stands above the content of titled windows turned out to be `height` points high.
    virtual void titleBarHeightDidChange(std::int64_t height) = 0;
    /// The last visible window was hidden and none was shown since.
    virtual void lastWindowDidHide() = 0;
    /// Called once, a short while after the launch, when a program has shown its first window.
    virtual void applicationDidSettle() = 0;
};

/// The running application.
class Application {
  public:
    virtual ~Application() = default;

    /// Launches (applicationWillFinishLaunching, applicationDidFinishLaunching), then serves events
    /// and the main queue until Terminate. Then the main queue is closed, the client's
    /// applicationWillTerminate runs, and Run returns or leaves the process. Main thread.
    virtual void Run(ApplicationClient& client) = 0;

    /// Asks the application to end and returns at once. Half a second later the process is gone,
    /// whatever its threads are doing. Any thread; further calls do nothing.
    virtual void Terminate() = 0;

    /// Ends the application now: closes the main queue, has applicationWillTerminate run and leaves
    /// the process. Main thread.
    [[noreturn]] virtual void TerminateNow() = 0;

    /// Serves events and the main queue for so long, at least once: what a wait on the main thread
    /// does instead of sleeping. Main thread.
    virtual void Serve(std::chrono::nanoseconds duration) = 0;

    /// The window that the person works in; nullptr when the application is not in front or none
    /// of its windows is. Main thread.
    [[nodiscard]] virtual Window* ActiveWindow() = 0;

    /// Ends the process as it is: nothing is destroyed, other threads may be anywhere. Everything
    /// written to the output was written before. Any thread.
    [[noreturn]] static void Leave(int status = 0);
};

}  // namespace platform
