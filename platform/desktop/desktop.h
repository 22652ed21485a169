#pragma once

#include <string>
#include <string_view>

#include "platform/picture.h"

// The platform as a person uses it: windows on the screen of a Linux desktop. Main thread.

namespace platform::desktop {

/// Whether a display can be reached. Start ends the process where this is false.
[[nodiscard]] bool DisplayReachable();

/// Makes this the platform of the process and installs it. Called once, before any other thread
/// runs; the arguments must live as long as the process. `applicationName` also names the bundle.
/// Windows bear the picture <name of the program's file>.png, if it lies beside the program or among
/// its resources.
void Start(int argc, char** argv, std::string_view applicationName = "Korvandi");

/// Writes the picture as a file of the kind that the path's ending names (".png"). False when that
/// failed. Also without Start.
bool SavePicture(const Picture& picture, const std::string& path);

}  // namespace platform::desktop
