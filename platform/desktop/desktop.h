#pragma once

#include <string_view>

// The platform as a person uses it: windows on the screen of a Linux desktop. Main thread.

namespace platform::desktop {

/// Whether a display can be reached. Start ends the process where this is false.
[[nodiscard]] bool DisplayReachable();

/// Makes this the platform of the process and installs it. Called once, before any other thread
/// runs; the arguments must live as long as the process. `applicationName` also names the bundle.
void Start(int argc, char** argv, std::string_view applicationName = "Korvandi");

}  // namespace platform::desktop
