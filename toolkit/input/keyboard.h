#pragma once

#include <cstdint>
#include <string>

#include "platform/input.h"
#include "toolkit/core/shared.h"
#include "toolkit/events/event.h"

// From key presses to key events. Main thread; the flags may be read on any thread.
//
// The value of a key, as t_NextEvent returns it: the code of its character up to 255, but for
//   Return, keypad Enter  13         Left   8 c    Home       2 c
//   Escape, keypad Clear  27         Right 21 c    End        5 c
//   Tab                    9         Up    11 c    Page Up   18 c
//   Shift-Tab             20         Down  10 c    Page Down  3 c
//   Backspace            127         F1 to F35  129 to 163 f
//   Delete                 7         Insert     164 f
//   Control and a letter   1 to 26   Help       195 f
// c marks the event with CursorKeyPressed, f with FunctionKeyPressed. The values above 127 are also
// those of characters: the marks tell them apart.
//
// Of the other characters above 255 only these make an event, each on the key that has this place
// on a US keyboard; the few up to 255 among them have another value there
//   A  å  176      H  ª  131      T  †  189      /  –  154      0 (zero)  ≠  172
//   B  ∫  222      I  ⁄  129      V  √  253      ;  œ  190      2         “  163
//   D  ∂  173      J  º  183      W  ∑  221      [  •  184      grave     ≤  197
//   E  €  164      K  ∆  254      X  ≈  132      \  ‘  180      grave     ≥  198
//   F  ƒ  130      P  π  240      Y  Ω  128      -  ¿  166
//   S  ‚  168      P  ∏  208      ,  ∞  255      .  …  191
// A dead key has value 0, but the section key 94, = 180, Shift-= 96, U 175, Option-N 126. Option
// makes the value of Control-L 0, and with it the keypad gives
//   0  216   1  185   2  178   3  179   4  170   5  215   6  186   7  229   8  230   9  188
// Control with keypad 7, 8 or 9, without Option, is t_RedirectOutput with 0, 2 or 1, and no event.

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

/// Turns a key press into a key event with the value that the table above gives, and queues it.
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
