#pragma once

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
};

/// The running application.
class Application {
  public:
    virtual ~Application() = default;

    /// Launches (applicationWillFinishLaunching, applicationDidFinishLaunching), then serves events
    /// and the main queue until Terminate. Then the main queue is closed, the client's
    /// applicationWillTerminate runs, and Run returns. Main thread.
    virtual void Run(ApplicationClient& client) = 0;

    /// Asks the application to end and returns at once. Any thread; further calls do nothing.
    virtual void Terminate() = 0;

    /// The window that the person works in; nullptr when the application is not in front or none
    /// of its windows is. Main thread.
    [[nodiscard]] virtual Window* MainWindow() = 0;

    /// Ends the process with status 0 as it is: nothing is destroyed, other threads may be
    /// anywhere. Everything written to the output was written before. Main thread.
    [[noreturn]] static void Leave();
};

}  // namespace platform
