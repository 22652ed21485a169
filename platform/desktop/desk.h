#pragma once

#include "platform/application.h"
#include "platform/desktop/chrome.h"
#include "platform/desktop/menus.h"
#include "platform/desktop/queue_pump.h"
#include "platform/main_queue.h"

namespace platform::desktop {

/// What the windows and the application share. One for the process, never destroyed. Main thread.
struct Desk {
    ApplicationClient* Client = nullptr;  // nullptr until the application runs
    QueuePump Pump;
    Chrome Above;
    Menus Bar;

    /// Whom to tell what happens: nobody (nullptr) until the application runs and once it ends.
    [[nodiscard]] ApplicationClient* Listener() const {
        return TheMainQueue().IsOpen() ? Client : nullptr;
    }
};

}  // namespace platform::desktop
