#pragma once

#include "toolkit/core/shared.h"
#include "toolkit/events/event_queue.h"
#include "toolkit/program/menus.h"

namespace toolkit {

/// The chosen items of the program's own menus that it has not taken yet, and whether there are
/// any. Any thread.
EventQueue<korvandi::MenuItemNumber>& MenuChoices();
extern constinit Shared<bool> menuChoicePending;

}  // namespace toolkit
