#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "app/program_run.h"
#include "platform/application.h"
#include "platform/menu.h"
#include "platform/window.h"
#include "toolkit/core/outlets.h"

/// The application's delegate: holds the interface's outlets, launches the program and answers what
/// the application and its windows report. One instance, which lives as long as the process. Main
/// thread.
class AppDelegate final : public toolkit::Outlets, public platform::ApplicationClient {
  public:
    /// `program` is what the program thread runs; `programIsOver` is called on the main thread when
    /// it has ended or could not be started.
    explicit AppDelegate(std::function<void()> program, std::function<void()> programIsOver = {});

    /// Logs "applicationWillFinishLaunching: Called." and names the main thread "AppDelegate".
    void applicationWillFinishLaunching() override;
    /// Builds the tables, measures the title bar and starts the program thread. Logs
    ///   "applicationDidFinishLaunching: Start."  "Program: Start."
    ///   "applicationDidFinishLaunching: End."
    /// and, where there are no resource files,
    ///   "applicationDidFinishLaunching: Resources not found in <folder>, <folder>."
    void applicationDidFinishLaunching() override;
    void applicationDidBecomeActive() override {}
    void applicationWillResignActive() override {}
    /// Logs "applicationWillTerminate: Called." and runs t_TerminateHandler.
    void applicationWillTerminate() override;
    /// False: closing windows never ends the application.
    bool applicationShouldTerminateAfterLastWindowClosed() override { return false; }

    /// Hides the window instead of closing it, and asks whether to quit when it was the last one on
    /// the screen. False: the platform never closes it itself.
    bool windowShouldClose(platform::Window& window) override;
    void windowWillClose(platform::Window& /*window*/) override {}
    /// Fits the scroll view and the ruler of the text window that the person works in.
    void windowDidResize(platform::Window& window) override;

    /// Notes the height, also for the graphic windows whose title bar is shown.
    void titleBarHeightDidChange(std::int64_t height) override;
    /// Shows the main window, so that the way to the menus is never lost.
    void lastWindowDidHide() override;
    /// Shows it, too, when a person has nothing to look at so far, or something is missing.
    void applicationDidSettle() override;

    /// The user program's run.
    [[nodiscard]] ProgramRun& TheRun() { return run_; }
    /// What the main window has to tell: what became of the program or is missing. Empty for
    /// nothing.
    [[nodiscard]] std::string Notice() const;

    /// A menu item was chosen; a button of a window was pressed, which means nothing to the
    /// toolkit.
    static void MenuHandler(const platform::MenuItem& item);
    static void ButtonHandler() {}

  private:
    [[nodiscard]] std::int64_t MeasuredTitleBarHeight() const;
    [[nodiscard]] std::string WhatBecameOfTheProgram() const;
    void ShowMainWindow() const;
    void AskWhetherToQuit();

    ProgramRun run_;
    std::vector<std::string> searched_;  // for the resources, in vain
    bool asking_ = false;
};
