#include "toolkit/window/host_windows.h"

#include "platform/platform.h"
#include "toolkit/core/outlets.h"
#include "toolkit/core/window_numbers.h"

namespace {

using platform::TextView;
using platform::View;
using platform::Window;
using toolkit::OtherWindow;
using toolkit::Outlets;

View* ViewOf(std::uint8_t window) {
    const Outlets* const outlets = t_AppDelegate;
    if (outlets == nullptr || window >= toolkit::kGraphicWindows) return nullptr;
    return outlets->*toolkit::kViewOutlets[window];
}

Window* HostOf(std::uint8_t window) {
    if (View* const view = ViewOf(window); view != nullptr) return view->HostWindow();
    const Outlets* const outlets = t_AppDelegate;
    const OtherWindow* const row = toolkit::OtherWindowOf(window);
    return outlets == nullptr || row == nullptr ? nullptr : outlets->*row->Host;
}

TextView* TextOf(std::uint8_t window) {
    const Outlets* const outlets = t_AppDelegate;
    const OtherWindow* const row = toolkit::OtherWindowOf(window);
    if (outlets == nullptr || row == nullptr || row->Text == nullptr) return nullptr;
    return outlets->*row->Text;
}

}  // namespace

View* t_WindowView(std::uint8_t window) {
    return platform::AskMain([window] { return ViewOf(window); });
}

Window* t_WindowHostWindow(std::uint8_t window) {
    return platform::AskMain([window] { return HostOf(window); });
}

TextView* t_WindowTextView(std::uint8_t window) {
    return platform::AskMain([window] { return TextOf(window); });
}

std::uint8_t t_FrontWindow() {
    return platform::AskMain(
        [] { return toolkit::WindowNumber(platform::Current().Application->ActiveWindow()); });
}

std::uint8_t toolkit::WindowNumber(const Window* window) {
    return platform::AskMain([window] {
        if (window == nullptr) return kNoWindow;
        for (const OtherWindow& row : kOtherWindows) {
            if (HostOf(row.Number) == window) return row.Number;
        }
        for (std::uint8_t n = 0; n < kGraphicWindows; ++n) {
            if (HostOf(n) == window) return n;
        }
        return kNoWindow;
    });
}

bool toolkit::IsVisible(std::uint8_t window) {
    const Window* const host = t_WindowHostWindow(window);
    return host != nullptr && host->IsVisible();
}
