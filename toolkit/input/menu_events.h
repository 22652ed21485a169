#pragma once

#include "platform/menu.h"
#include "toolkit/core/handler.h"
#include "toolkit/events/menu.h"

// What happens when a menu item is chosen. events/menu.h has t_MenuActions, whose entries say what
// the items do, and the queue of what was chosen; menu_bar.h has the menus themselves.
//
// Built-in actions; w is the window that the person works in:
//   100  runs an open dialog; path and name go into the action's entry
//   101  runs a save dialog; the same
//   110  copies the picture of w, a graphic window
//   111  copies the text of w: a graphic window with look-alikes (t_ExportText), the virtual
//        printer or the system console
//   112  clears the virtual printer          114  clears the system console
//   113  runs t_MenuWindowProc, if w is a graphic window
//   200  hides every window                  201  hides w
//
//   show  hide                               show       hide
//   205   206   the main window              211        212        the pasteboard
//   207   208   the preferences              229        230        the system console
//   209   210   the virtual printer          213 + 2 n  214 + 2 n  graphic window n, 0 to 7
// A number that is not here does nothing. What cannot be done sounds the warning; some cases print
// a line besides:
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
