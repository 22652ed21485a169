#pragma once

#include <cstdint>

#include "platform/platform.h"

// How large the person wants graphic windows to be shown. Main thread.

/// What a person is offered, in percent.
inline constexpr std::int64_t kZoomsInPercent[] = {50, 75, 100, 125, 150, 200, 300, 400};

void SetZoomPercent(platform::Window& window, std::int64_t percent);

/// The largest zoom at which the screen shows all of the window.
void ZoomToFit(platform::Window& window);

/// The next larger or smaller of the offered zooms; none beyond the last one.
void ZoomIn(platform::Window& window);
void ZoomOut(platform::Window& window);
