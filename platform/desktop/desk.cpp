#include "platform/desktop/desk.h"

#include <algorithm>

#include "platform/desktop/host_window.h"
#include "platform/platform.h"

namespace platform::desktop {

namespace {

bool AnythingVisible() {
    return std::ranges::any_of(TheDesk().Windows,
                               [](const HostWindow* window) { return window->IsVisible(); });
}

}  // namespace

Desk& TheDesk() {
    static auto* const desk = new Desk;
    return *desk;
}

void TellWhenNothingIsVisible() {
    if (AnythingVisible()) return;
    PostToMain([] {
        const Desk& desk = TheDesk();
        if (desk.Client == nullptr || desk.Ending || AnythingVisible()) return;
        if (desk.Client->applicationShouldTerminateAfterLastWindowClosed()) {
            Current().Application->Terminate();
        } else {
            desk.Client->lastWindowDidHide();
        }
    });
}

}  // namespace platform::desktop
