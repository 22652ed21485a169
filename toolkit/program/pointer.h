#pragma once

#include <cstdint>

#include "platform/input.h"

// Where the mouse is between clicks. Clicks themselves are events, see toolkit/input/mouse.h.

namespace korvandi {

struct MouseState {
    bool Inside = false;       // over the window's picture
    std::int64_t X = 0;        // column of the picture from 0, held at its edges
    std::int64_t Y = 0;        // row from 0 at the top, held at its edges
    std::int64_t Buttons = 0;  // held: 1 left, 2 right, 4 middle, added

    bool operator==(const MouseState&) const = default;
};

/// The mouse as graphic window `window` (0 to 7) saw it last: while a button is held that was
/// pressed in the window, also from outside of it. All 0 before it was there at all. Any thread;
/// asks nobody. After a fault all 0, and
///   "Mouse: Window is not a graphic window."
///   "Mouse: Window #<window> not initialized."
[[nodiscard]] MouseState Mouse(std::uint8_t window);

}  // namespace korvandi

namespace toolkit {

/// The mouse moved over the view of graphic window `window`, or its buttons changed. Main thread.
void NotePointer(std::uint8_t window, const platform::MousePress& pointer);

/// The mouse left the view. Main thread.
void NotePointerLeft(std::uint8_t window);

/// Forgets what was noted, as at the start of the process. While nobody else uses it.
void ForgetPointers();

}  // namespace toolkit
