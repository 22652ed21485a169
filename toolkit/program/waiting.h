#pragma once

#include <cstdint>

// Time and waiting. Any thread; on the main thread events are served meanwhile.

namespace korvandi {

/// Milliseconds since some moment before the program's start; never steps back.
[[nodiscard]] std::int64_t Milliseconds();

/// Waits for so many milliseconds; not at all for 0 or less.
void Pause(std::int64_t milliseconds);

/// Kinds of events; several are joined by |.
enum class Events : std::uint8_t {
    Keys = 1,         // t_EventPending
    Clicks = 2,       // t_MouseEventPending
    MenuChoices = 4,  // of the program's own items, see TakeMenuChoice
};

constexpr Events operator|(Events a, Events b) {
    return static_cast<Events>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}

/// Waits until there is an event of these kinds, at most so many milliseconds; returns at once when
/// there is one. Whether there is one now; it stays where it is. Name the kinds that the program
/// takes: an event that nobody takes would end every wait at once.
bool WaitForEvent(std::int64_t milliseconds, Events kinds);

}  // namespace korvandi
