#include "toolkit/graphics/refresh.h"

#include <algorithm>
#include <limits>

#include "platform/platform.h"
#include "toolkit/core/clock.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/output.h"
#include "toolkit/core/threads.h"
#include "toolkit/window/host_windows.h"
#include "toolkit/window/window.h"

constinit toolkit::Shared<bool> t_AutoUpdateRunning;

namespace {

using toolkit::PrintLine;

constexpr std::int64_t kSecond = 1000;  // milliseconds

std::int64_t Interval(const t_Window& w) {
    const std::int64_t rate = w.RefreshRate;
    return rate == 0 ? 0 : kSecond / rate;
}

// How long until a window is due; 0 or less: now.
std::int64_t TimeLeft(const t_Window& w) {
    return toolkit::Minus(toolkit::Plus(w.UpdateStarted, Interval(w)), toolkit::Milliseconds());
}

// Marks the window's view, in one visit to the main thread; false without a view.
bool Ask(std::uint8_t n) {
    return platform::AskMain([n] {
        platform::View* const view = t_WindowView(n);
        if (view == nullptr) {
            PrintLine("t_WindowAutoUpdateProcess: Window #", n,
                      " view is nil, resource undefined.");
            return false;
        }
        t_Windows[n].UpdateStarted = toolkit::Milliseconds();
        view->SetNeedsDisplay();
        return true;
    });
}

// In place of a time: there is no window that could be due.
constexpr std::int64_t kNoWindow = std::numeric_limits<std::int64_t>::max();

// A pause of 1 ms, longer where nobody else wakes the machine, but not so long that a window would
// be late. The first one that is set up does not wait longer either.
void Pause(std::int64_t left) {
    constexpr std::int64_t kLongest = 5;
    const std::int64_t longest =
        left == kNoWindow ? 1 : std::clamp<std::int64_t>(left, 1, kLongest);
    toolkit::SleepAbout(1, longest - 1);
}

void RunOnePass() {
    bool asked = false;
    std::int64_t soonest = kNoWindow;
    for (std::uint8_t n = 0; n < toolkit::kGraphicWindows; ++n) {
        const t_Window& w = t_Windows[n];
        if (!w.Initialized || !w.AutoUpdate) continue;
        const std::int64_t left = TimeLeft(w);
        if (left <= 0 && w.VerticalBlank && Ask(n)) asked = true;
        soonest = std::min(soonest, left);
    }
    if (!asked) Pause(soonest);
}

}  // namespace

void t_WindowAutoUpdateProcess() {
    PrintLine("t_WindowAutoUpdateProcess: Start.");
    if (t_ThreadNumber() >= 3) platform::NameThread("t_WindowAutoUpdate");
    t_AutoUpdateRunning = true;
    while (t_ToolsReady && t_AutoUpdateRunning) RunOnePass();
    t_AutoUpdateRunning = false;
    PrintLine("t_WindowAutoUpdateProcess: End.");
}

void t_WindowUpdate(std::uint8_t window, bool deferred) {
    if (!t_ToolsReady || toolkit::GraphicWindow(__func__, window) == nullptr) return;
    platform::View* const view = t_WindowView(window);
    if (view == nullptr) {
        PrintLine("t_WindowUpdate: Window #", window, " view is nil, resource undefined.");
        return;
    }
    platform::RunOnMain([&] { deferred ? view->SetNeedsDisplay() : view->Display(); });
}

void toolkit::StartAutoUpdate() {
    if (t_AutoUpdateRunning.Exchange(true)) return;
    // Without a worker the next window tries again.
    if (!RunInBackground("t_RunInBackground", t_WindowAutoUpdateProcess)) {
        t_AutoUpdateRunning = false;
    }
}
