#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "toolkit/core/shared.h"
#include "toolkit/events/event_queue.h"

// Key presses and clicks as the program sees them. They are queued on the main thread and taken on
// the program thread; nothing limits the queues and nothing drops old events.

/// One input event. Times are milliseconds of the platform's absolute time.
struct t_Event {
    std::int64_t Kind = 0;     // 1 key, 2 mouse
    std::int64_t Index = 0;    // key: its key code; mouse: the buttons held, 1 left, 2 right, ...
    std::string Description;   // key: the characters it produced, UTF-8
    std::int64_t Value = 0;    // key: its value, as input/keyboard.h lists them
    std::int64_t WindowX = 0;  // mouse: place in the window, from its lower left, points
    std::int64_t WindowY = 0;
    std::int64_t ClickX = 0;  // mouse: column of the picture; -1 left of it, -2 right of it
    std::int64_t ClickY = 0;  // mouse: row of the picture from its top; -1 above, -2 below it
    std::int64_t Mods = 0;    // the modifier mask shifted right by 16
    std::uint8_t Window = 0;  // window number
    std::int64_t Time = 0;
    bool CloseBox = false;
    bool CapsLockPressed = false;
    bool ShiftPressed = false;
    bool ControlPressed = false;
    bool OptionPressed = false;
    bool CommandPressed = false;
    bool NumericPadPressed = false;
    bool HelpPressed = false;
    bool FnPressed = false;           // key only
    bool CursorKeyPressed = false;    // key: a cursor key
    bool FunctionKeyPressed = false;  // key: a function key; mouse: the fn modifier

    bool operator==(const t_Event&) const = default;
};

namespace toolkit {

/// An event as it waits in a queue: much smaller than the record, so that a long pasted text stays
/// small too. An event with larger numbers or a longer description than those of keys and clicks is
/// kept whole.
class QueuedEvent {
  public:
    QueuedEvent(t_Event event);
    operator t_Event() const;

  private:
    static constexpr std::size_t kNumbers = 6;
    static constexpr std::size_t kMostCharacters = 9;  // bytes

    [[nodiscard]] static bool IsSmall(const t_Event& event);

    std::unique_ptr<const t_Event> whole_;  // if there is one, the rest means nothing
    std::int64_t time_ = 0;
    std::array<std::int32_t, kNumbers> numbers_{};
    std::uint16_t mods_ = 0;
    std::uint16_t flags_ = 0;  // from the lowest bit on, in the order of the fields
    std::uint8_t kind_ = 0;
    std::uint8_t window_ = 0;
    std::uint8_t length_ = 0;  // of the description, bytes
    std::array<char, kMostCharacters> description_{};
};

using InputQueue = EventQueue<t_Event, QueuedEvent>;

}  // namespace toolkit

/// Key events waiting for the program thread, and whether there are any.
extern toolkit::InputQueue& t_EventQueue;
extern constinit toolkit::Shared<bool> t_EventPending;

/// Mouse events. Only the program takes from this queue.
extern toolkit::InputQueue& t_MouseEventQueue;
extern constinit toolkit::Shared<bool> t_MouseEventPending;

/// The event that t_NextEvent took last. Program thread.
extern t_Event& t_CurrentEvent;

/// Takes the oldest key event into t_CurrentEvent and returns its Value; -1, with t_CurrentEvent as
/// it was, when there is none. Program thread.
std::int64_t t_NextEvent();

/// Queues a key event for each character of the string, as if it had been typed. Any thread.
void t_QueueKeys(std::string_view string);
