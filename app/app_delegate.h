#pragma once

#include <cstdint>
#include <functional>

#include "platform/application.h"
#include "platform/menu.h"
#include "platform/window.h"
#include "toolkit/core/outlets.h"

/// The application's delegate: holds the interface's outlets, launches the program and answers what
/// the application and its windows report. One instance, which lives as long as the process. Main
/// thread.
class AppDelegate final : public toolkit::Outlets, public platform::ApplicationClient {
  public:
    /// `program` is what the program thread runs.
    explicit AppDelegate(std::function<void()> program);

    /// Logs "applicationWillFinishLaunching: Called." and names the main thread "AppDelegate".
    void applicationWillFinishLaunching() override;
    /// Builds the tables, measures the title bar and starts the program thread. Logs
    ///   "applicationDidFinishLaunching: Start."  "Program: Start."
    ///   "applicationDidFinishLaunching: End."
    void applicationDidFinishLaunching() override;
    void applicationDidBecomeActive() override {}
    void applicationWillResignActive() override {}
    /// Logs "applicationWillTerminate: Called." and runs t_TerminateHandler.
    void applicationWillTerminate() override;
    /// False: closing windows never ends the application.
    bool applicationShouldTerminateAfterLastWindowClosed() override { return false; }

    /// Hides the window instead of closing it. False: the platform never closes it itself.
    bool windowShouldClose(platform::Window& window) override;
    void windowWillClose(platform::Window& /*window*/) override {}
    /// Fits the scroll view and the ruler of the text window that the person works in.
    void windowDidResize(platform::Window& window) override;

    /// Notes the height, also for the graphic windows whose title bar is shown.
    void titleBarHeightDidChange(std::int64_t height) override;
    /// Shows the main window, so that the way to the menus is never lost.
    void lastWindowDidHide() override;

    /// A menu item was chosen; a button of a window was pressed, which means nothing to the
    /// toolkit.
    static void MenuHandler(const platform::MenuItem& item);
    static void ButtonHandler() {}

    /// Stack size of the program thread, bytes.
    static constexpr std::int64_t kProgramStack = 0x4000'0000;

  private:
    [[nodiscard]] std::int64_t MeasuredTitleBarHeight() const;

    std::function<void()> program_;
};
