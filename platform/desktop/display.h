#pragma once

#include <chrono>
#include <optional>
#include <string>

// Questions to the display server that are asked beside the window system of the program, through a
// connection of their own. Main thread.

namespace platform::desktop {

/// The first display system that can be reached, named as the window library names its plugins;
/// empty when there is none. Found out once. An X display stays connected until LetGoOfDisplay: a
/// server whose last client leaves may start anew, and refuses whoever comes meanwhile.
[[nodiscard]] const std::string& ReachablePlatform();

/// The window library has its own connection now.
void LetGoOfDisplay();

/// What a window manager puts around a titled window, in device pixels.
struct FrameSides {
    int Left = 0;
    int Right = 0;
    int Top = 0;
    int Bottom = 0;
};

/// What the running window manager puts around a titled window, asked for a window that is not
/// shown. Nothing without a window manager; no value when the manager does not answer within
/// `patience`, or when there is no X display.
[[nodiscard]] std::optional<FrameSides> AskFrameSides(std::chrono::milliseconds patience);

/// Whether somebody holds a mouse button, wherever on the X display; false when there is none.
[[nodiscard]] bool ButtonHeld();

}  // namespace platform::desktop
