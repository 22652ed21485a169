#pragma once

#include <cstdint>
#include <functional>

// The one clock of all times in records: the platform's absolute time, which never steps back. Any
// thread.

namespace toolkit {

/// Whole milliseconds, truncated.
[[nodiscard]] std::int64_t Milliseconds();

/// Whole microseconds, truncated.
[[nodiscard]] std::int64_t Microseconds();

/// Blocks the calling thread.
void SleepMilliseconds(std::int64_t duration);

/// The same, up to `slack` milliseconds longer where that spares a wake-up.
void SleepAbout(std::int64_t duration, std::int64_t slack);

/// One step of waiting for something that another thread does: sleeps, or on the main thread serves
/// events and the main queue for so long, because the other thread may need them. Off the main
/// thread it ends early when `done` is given and holds after WakeSleepers.
void WaitMilliseconds(std::int64_t duration, const std::function<bool()>& done = {});

/// Has those who wait for `done` look at it.
void WakeSleepers();

/// Blocks the calling thread for so many seconds, in whole nanoseconds; not at all for 0 or less.
void SleepSeconds(double seconds);

}  // namespace toolkit
