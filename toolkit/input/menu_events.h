#pragma once

#include "platform/menu.h"
#include "toolkit/core/handler.h"
#include "toolkit/events/menu.h"

// What happens when a menu item is chosen.
//
// Built-in actions; w is the window that the person works in:
//   100, 101   open and save dialog; the result goes into the action's entry
//   110        copy the picture of w
//   111        copy the text of w
//   112, 114   clear the virtual printer, the system console
//   113        run t_MenuWindowProc when w is a graphic window
//   200, 201   hide every window, hide w
//   205, 206   show, hide the main window; 207, 208 preferences; 209, 210 virtual printer;
//              211, 212 pasteboard; 229, 230 system console
//   213 - 228  show, hide graphic window 0 to 7
// What cannot be done sounds the warning; some cases print a line besides:
//   "t_MenuEventHandler: Window #<n> not initialized."
//   "t_MenuEventHandler: System console window is nil, resource undefined."
//   "t_MenuEventHandler: Virtual printer window is nil, resource undefined."

/// The program's menu handler, run on a background worker for items without a built-in action. Does
/// nothing until a program sets it; it may be set on any thread.
extern toolkit::Handler& t_MenuHandler;

/// What action 113 runs, on the main thread; t_SysBeep until a program sets it.
extern toolkit::Handler& t_MenuWindowProc;

/// Carries out the item's built-in action, queues a t_MenuEvent, and has t_MenuHandler run when the
/// item has no such action. Main thread.
void t_MenuEventHandler(const platform::MenuItem& item);
