#pragma once

#include <vector>

#include "platform/application.h"
#include "platform/desktop/chrome.h"
#include "platform/desktop/menus.h"
#include "platform/desktop/queue_pump.h"

namespace platform::desktop {

class HostWindow;

/// What the parts of the desktop share. Main thread.
struct Desk {
    ApplicationClient* Client = nullptr;  // nullptr until the application runs
    std::vector<HostWindow*> Windows;     // all that were made, in that order
    QueuePump Pump;
    Chrome Above;
    Menus Bar;
    bool Ending = false;
};

/// The process's desk; it is never destroyed.
Desk& TheDesk();

/// Tells the client once nothing of ours is left on the screen, after the current event, unless a
/// window is shown by then. A minimised window is on the screen.
void TellWhenNothingIsVisible();

}  // namespace platform::desktop
