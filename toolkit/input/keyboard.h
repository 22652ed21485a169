#pragma once

#include <cstdint>
#include <string>

#include "platform/input.h"
#include "toolkit/core/shared.h"
#include "toolkit/events/event.h"

// From key presses to key events. Main thread; the flags may be read on any thread.

extern constinit toolkit::Shared<bool> t_KeyDown;  // a key is held
// The modifiers as last seen.
extern constinit toolkit::Shared<bool> t_CapsLockPressed;
extern constinit toolkit::Shared<bool> t_ShiftPressed;
extern constinit toolkit::Shared<bool> t_ControlPressed;
extern constinit toolkit::Shared<bool> t_OptionPressed;
extern constinit toolkit::Shared<bool> t_CommandPressed;
extern constinit toolkit::Shared<bool> t_FnPressed;

/// A key was pressed in the view of graphic window `window` (0 to 7). Queues a key event unless the
/// toolkit is not ready or the window ignores events, and sets t_KeyDown.
/// Fault: "viewKeyDown: Graphic window (<window>) not initialized."
void viewKeyDown(std::uint8_t window, const platform::KeyPress& press);

/// Turns a key press into a key event and queues it. The event's value is the character code that
/// the key table gives for the key and its character, or else the character's own code up to 255
/// (13 Return, 27 Escape), or 129 and on for F1 and the other function keys. Other characters make
/// no event. Control with 7, 8, 9 of the keypad redirects the window's text output to nowhere,
/// standard output, the window, and makes no event either.
void t_KeyEventHandler(std::uint8_t window, const platform::KeyPress& press);

/// Waits for the next key, with the window's text cursor shown, and returns its character. Takes
/// any event whose value is 0 or more. Does not check the window.
/// Program thread.
[[nodiscard]] std::string t_WaitKey(std::uint8_t window);

namespace toolkit {

/// Sets the six modifier flags above.
void SetModifierFlags(std::uint64_t modifierFlags);

/// Fills in what key and mouse events have in common: the modifier mask and its flags up to
/// HelpPressed.
void FillInModifiers(t_Event& event, std::uint64_t modifierFlags);

}  // namespace toolkit
