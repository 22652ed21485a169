#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "toolkit/core/shared.h"

// The program thread, background workers, and how far the toolkit's set-up is.

extern constinit toolkit::Shared<bool> t_MemoryStarted;  // t_InitMemory has begun
extern constinit toolkit::Shared<bool> t_ToolsReady;     // t_InitMemory is done; never cleared

/// A start was asked for and the new thread has not yet taken its entry.
extern constinit toolkit::Shared<bool> t_ProgramStartPending;
/// Stack size in bytes of the next started thread.
extern constinit toolkit::Shared<std::int64_t> t_ProgramStackSize;
/// What the next started thread runs. Guarded by t_ProgramStartPending: set before it becomes true,
/// taken before it becomes false.
extern std::function<void()>& t_ProgramEntry;

/// Runs `entry` on a new thread whose stack holds `stackSize` bytes. Returns once the thread has
/// been made. Waits while an earlier start has not been taken. Any thread. A thread that cannot be
/// made prints
///   "startprocess: Thread could not be started: <reason>"
void startprocess(std::function<void()> entry, std::int64_t stackSize);

/// Runs `entry` on a background worker; nobody waits for it. Any thread. A worker that cannot be
/// made prints
///   "t_RunInBackground: Thread could not be started: <reason>"
void t_RunInBackground(std::function<void()> entry);

/// The calling thread's sequence number: 1 for the main thread, 2 for the first one started after
/// it, 0 for a thread without a number.
[[nodiscard]] std::int64_t t_ThreadNumber();

namespace toolkit {

/// As startprocess; returns an empty text, or why no thread could be made.
std::string StartProcess(std::function<void()> entry, std::int64_t stackSize);

/// As t_RunInBackground, the line under the name `operation`; whether a worker could be made.
bool RunInBackground(std::string_view operation, std::function<void()> entry);

/// The number that a thread's description shows between "number = " and the next comma; 0 without
/// one.
[[nodiscard]] std::int64_t NumberInDescription(std::string_view description);

}  // namespace toolkit
