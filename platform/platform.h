#pragma once

#include "platform/application.h"
#include "platform/main_queue.h"
#include "platform/menu.h"
#include "platform/panels.h"
#include "platform/pasteboard.h"
#include "platform/sound.h"
#include "platform/system.h"
#include "platform/thread.h"
#include "platform/window.h"

// The seam between the toolkit and a desktop: everything that the toolkit asks of one, in the
// toolkit's words. An implementation opens the main queue on its main thread, fills a Platform and
// installs it; then the interface can be built and Application::Run be called. docs/platform.md
// tells all that an implementation does.

namespace platform {

/// All are to be set; they live as long as the process.
struct Platform {
    platform::Application* Application = nullptr;
    platform::WindowMaker* WindowMaker = nullptr;
    platform::MenuBar* MenuBar = nullptr;
    platform::Panels* Panels = nullptr;
    platform::Pasteboard* Pasteboard = nullptr;
    platform::Sounds* Sounds = nullptr;
    platform::Clock* Clock = nullptr;
    platform::Randomness* Randomness = nullptr;
    platform::Output* Output = nullptr;
    platform::Resources* Resources = nullptr;
};

/// Main thread, before any other thread runs.
void Install(const Platform& platform);

/// The installed platform. Any thread; what its parts allow is said at each of them.
const Platform& Current();

}  // namespace platform
