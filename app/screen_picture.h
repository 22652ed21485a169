#pragma once

#include <optional>

#include "platform/headless/headless.h"
#include "platform/picture.h"
#include "toolkit/window/window.h"

// Pictures of what stands on a desktop in memory. Main thread.

/// A window's picture with its border around it.
[[nodiscard]] platform::Picture WithBorder(const platform::Picture& picture, const t_Window& w);

/// All graphic windows that are shown, as they lie over each other, each with its border and without
/// its title bar, on a plain ground that is seen a little around them. No value where none is shown.
[[nodiscard]] std::optional<platform::Picture> ScreenPicture(
    const platform::headless::Headless& desktop);
