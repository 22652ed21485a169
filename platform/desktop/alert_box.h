#pragma once

#include <cstdint>

#include "platform/panels.h"

namespace platform::desktop {

/// Shows the alert in front of the window that the person works in and waits for a button, as
/// Panels::RunAlert. Main thread.
std::int64_t RunAlertBox(const Alert& alert);

}  // namespace platform::desktop
