#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

// Threads with a chosen stack, a number and a name. Every started thread has a sequence number: the
// main thread is 1, the first one started after it 2. Any thread unless said otherwise.

namespace platform {

/// Runs `body` on a new thread and returns; nobody waits for its end. `stackSize` is in bytes, 0
/// for the system's own choice, and raised to the system's minimum; the stack takes memory only
/// where it is touched. Returns an empty text, or why no thread could be made.
[[nodiscard]] std::string StartThread(std::function<void()> body, std::size_t stackSize);

/// Has background tasks started by `start` instead of by a thread each; an empty function restores
/// that. `start` returns as StartThread does. Before any other thread runs.
void SetBackgroundStarter(std::function<std::string(std::function<void()>)> start);

/// Runs `task` soon on a background thread; nobody waits for its end. Returns as StartThread does.
[[nodiscard]] std::string StartBackgroundTask(std::function<void()> task);

/// Names the calling thread. The system shows the first 15 bytes; it shows a thread of StartThread
/// as "Thread <number>" until it is named.
void NameThread(std::string_view name);

/// The calling thread as a readable text: "<thread>{number = 2, name = Main Program}". A thread
/// that was not started here shows "number = 0".
[[nodiscard]] std::string ThreadDescription();

/// Ends the calling thread, which StartThread must have made. Objects on its stack are destroyed on
/// the way; where something forbids that (a function declared noexcept, a catch (...) that keeps
/// what it caught), the thread stops there for ever instead, and the process goes on.
[[noreturn]] void EndThread();

/// Stops the calling thread for ever without using processor time.
[[noreturn]] void Park();

/// How many threads of StartThread have not ended.
[[nodiscard]] std::int64_t RunningThreads();

/// Numbers threads anew: the next started one is 2. The calling thread becomes number 1. Only while
/// no other thread of StartThread runs.
void RestartThreadNumbers();

}  // namespace platform
