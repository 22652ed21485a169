#pragma once

#include <cstdint>

#include "toolkit/core/shared.h"

// When windows are shown anew. The frames themselves are built when the platform makes a display
// pass of a view that was marked here.

/// The refresh loop runs, or was asked to start.
extern constinit toolkit::Shared<bool> t_AutoUpdateRunning;

/// The refresh loop: marks the view of every set-up window with AutoUpdate for the next display
/// pass, at most RefreshRate times a second (0: as fast as it goes) and only while VerticalBlank is
/// true. Runs on a background worker until t_AutoUpdateRunning is cleared. Logs its start and end
/// and, whenever a window that is due has no view,
///   "t_WindowAutoUpdateProcess: Window #<n> view is nil, resource undefined."
void t_WindowAutoUpdateProcess();

/// Asks for a frame of graphic window `window` (0 to 7): at the next display pass when `deferred`,
/// otherwise at once, and returns when it was shown. Any thread. Nothing before the toolkit is
/// ready. Faults: "t_WindowUpdate: Window is not a graphic window."
///         "t_WindowUpdate: Window #<window> view is nil, resource undefined."
void t_WindowUpdate(std::uint8_t window, bool deferred);

namespace toolkit {

/// Starts the refresh loop on a background worker unless it runs. Where none can be had, the line
/// of t_RunInBackground is printed and the next call tries again.
void StartAutoUpdate();

}  // namespace toolkit
