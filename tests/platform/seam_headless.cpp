#include "platform/headless/headless.h"
#include "tests/platform/seam_platforms.h"

void StartPlatform(int /*argc*/, char** /*argv*/) {
    auto& desktop = *new platform::headless::Headless;  // as long as the process
    desktop.RealTime = true;
    desktop.HoldBackground = false;
}
