#include <cstdlib>

#include "platform/desktop/desktop.h"
#include "tests/platform/seam_platforms.h"

// Windows of the window library that stand in memory alone.
void StartPlatform(int argc, char** argv) {
    constexpr int kWhateverIsSet = 1;
    setenv("QT_QPA_PLATFORM", "offscreen", kWhateverIsSet);
    platform::desktop::Start(argc, argv, "Seam");
}
