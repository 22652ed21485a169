#pragma once

#include <functional>

/// Runs `program`, any function without arguments written against toolkit/toolkit.h, as a windowed
/// application on the installed platform: builds the interface, launches, runs `program` on a
/// thread of its own, and ends with the application, as platform::Application::Run does: it may
/// leave the process instead of returning. `programIsOver` is called on the main thread when that
/// thread has ended or could not be started. Main thread, once per process.
void RunProgram(std::function<void()> program, std::function<void()> programIsOver = {});
