#pragma once

#include <cstdint>

#include "toolkit/core/shared.h"
#include "toolkit/events/event_queue.h"

namespace toolkit {

/// The numbers of the chosen items of the program's own menus that it has not taken yet, and
/// whether there are any. Any thread.
EventQueue<std::int64_t>& MenuChoices();
extern constinit Shared<bool> menuChoicePending;

}  // namespace toolkit
