#pragma once

#include <cstdint>

#include "toolkit/core/handler.h"

// The end of the program and of the application.

/// Run once when the application terminates, on the main thread; does nothing until a program sets
/// it.
extern toolkit::Handler& t_TerminateHandler;

/// Ends the calling thread, which startprocess must have started, and leaves "(Programm Ende)" in
/// the window of that number (0 to 12; without such a window only the thread ends). The application
/// stays open. Logs
///   "t_QuitProgram: Quitting current thread with message in window #<window>."
///   "t_QuitProgram: Quitting current thread."      no such window
/// Objects on the thread's stack are destroyed on the way. On the main thread, without which there
/// is no application, it ends the application.
[[noreturn]] void t_QuitProgram(std::uint8_t window);
