#pragma once

#include <cstdint>

#include "platform/input.h"
#include "toolkit/core/handler.h"
#include "toolkit/core/shared.h"

// From clicks to mouse events. Main thread; the flags may be read on any thread.

extern constinit toolkit::Shared<bool> t_MouseDown;       // the left button is held
extern constinit toolkit::Shared<bool> t_RightMouseDown;  // the right button is held

/// The program's mouse handler, run on a background worker after every mouse press. Does nothing
/// until a program sets it; it may be set on any thread.
extern toolkit::Handler& t_MouseHandler;

/// A button was pressed in the view of graphic window `window` (0 to 7). Hands the press on unless
/// the toolkit is not ready or the window ignores events, and sets the button flags.
/// Fault: "viewMouseDown: Graphic window (<window>) not initialized."
void viewMouseDown(std::uint8_t window, const platform::MousePress& press, bool rightButton);

/// Queues a mouse event for a press at (x, y), points from the lower left of the window's content,
/// logs its place in the picture, and runs t_MouseHandler in the background. Faults, after which
/// no event is queued, but the handler runs:
///   "t_MouseEventHandler: Unknown window, AbsX = <x>, AbsY = <y>"     window is 8 or more
///   "t_MouseEventHandler: Window #<window> not initialized."
void t_MouseEventHandler(std::uint8_t window, const platform::MousePress& press, double x,
                         double y);

/// The close box of window `window` (0 to 12) was clicked: hides the window and logs
///   "t_MouseEventPostCloseBoxClick: Window = <window>"
void t_MouseEventPostCloseBoxClick(std::uint8_t window);
