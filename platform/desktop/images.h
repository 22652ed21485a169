#pragma once

#include <QtGui/QImage>

#include "platform/picture.h"

namespace platform::desktop {

/// A copy of the picture; a null image for one whose bytes are too few for its size.
[[nodiscard]] QImage ImageOf(const Picture& picture);

}  // namespace platform::desktop
