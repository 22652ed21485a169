#pragma once

#include <QtCore/QRect>

#include "platform/geometry.h"

// Places on the screen from the desktop's coordinates, which count downwards from the upper left,
// to those of the seam and back. Main thread.

namespace platform::desktop {

[[nodiscard]] Rect ToSeam(const QRect& rect);

/// To whole points; numbers that no screen has are brought near those that one could have.
[[nodiscard]] QRect FromSeam(const Rect& rect);

}  // namespace platform::desktop
