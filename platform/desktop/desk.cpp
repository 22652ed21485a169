#include "platform/desktop/desk.h"

#include <algorithm>

#include "platform/desktop/host_window.h"
#include "platform/main_queue.h"

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
        desk.Client->lastWindowDidHide();
    });
}

}  // namespace platform::desktop
