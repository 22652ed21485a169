#include "toolkit/input/mouse.h"

#include <optional>
#include <string>
#include <utility>

#include "platform/platform.h"
#include "toolkit/core/clock.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/output.h"
#include "toolkit/core/threads.h"
#include "toolkit/events/event.h"
#include "toolkit/input/keyboard.h"
#include "toolkit/window/placement.h"
#include "toolkit/window/window.h"

constinit toolkit::Shared<bool> t_MouseDown;
constinit toolkit::Shared<bool> t_RightMouseDown;
toolkit::Handler& t_MouseHandler = *new toolkit::Handler;

namespace {

using toolkit::Minus;
using toolkit::Plus;
using toolkit::PrintLine;

constexpr std::int64_t kBefore = -1;    // left of the picture or above it
constexpr std::int64_t kBehind = -2;    // right of it or below it
constexpr std::int64_t kUnusable = -3;  // no picture

std::int64_t InPicture(std::int64_t place, std::int64_t size) {
    if (place < 0) return kBefore;
    return place >= size ? kBehind : place;
}

// The place in the picture; no value, after a line, for a window without one.
struct PicturePoint {
    std::int64_t X;
    std::int64_t Y;
};

std::optional<PicturePoint> PlaceInPicture(std::uint8_t window, std::int64_t absX,
                                           std::int64_t absY) {
    if (window >= toolkit::kGraphicWindows) {
        PrintLine("t_MouseEventHandler: Unknown window, AbsX = ", absX, ", AbsY = ", absY);
        return std::nullopt;
    }
    const t_Window& w = t_Windows[window];
    if (!toolkit::IsUsable(w, toolkit::Need::SetUp)) {
        toolkit::PrintNotInitialized("t_MouseEventHandler", window);
        return std::nullopt;
    }
    const std::int64_t x = Minus(absX, w.BorderWidth);
    const std::int64_t y = Minus(Plus(w.BorderHeight, w.Height), absY);
    return PicturePoint{InPicture(x, w.Width), InPicture(y, w.Height)};
}

void RunProgramHandler() {
    t_RunInBackground([] {
        if (t_ThreadNumber() >= 3) platform::NameThread("t_EventMouse");
        t_MouseHandler();
    });
    PrintLine("t_MouseEventHandler: Calling program mouse handler asynchronously.");
}

}  // namespace

void viewMouseDown(std::uint8_t window, const platform::MousePress& press, bool rightButton) {
    if (t_ToolsReady && window < toolkit::kGraphicWindows) {
        const t_Window& w = t_Windows[window];
        if (!w.Initialized) {
            PrintLine("viewMouseDown: Graphic window (", window, ") not initialized.");
        } else if (!w.IgnoreEvents) {
            t_MouseEventHandler(window, press, press.X, press.Y);
        }
    }
    t_MouseDown = !rightButton;
    t_RightMouseDown = rightButton;
}

void t_MouseEventHandler(std::uint8_t window, const platform::MousePress& press, double x,
                         double y) {
    t_Event event;
    event.Kind = 2;
    event.Index = press.Buttons;
    event.WindowX = toolkit::Truncated(x);
    event.WindowY = toolkit::Truncated(y);
    event.Window = window;
    event.Time = toolkit::Milliseconds();
    toolkit::FillInModifiers(event, press.ModifierFlags);
    event.FunctionKeyPressed = (press.ModifierFlags & platform::kFnFlag) != 0;

    const std::optional<PicturePoint> place = PlaceInPicture(window, event.WindowX, event.WindowY);
    const auto [clickX, clickY] = place.value_or(PicturePoint{kUnusable, kUnusable});
    event.ClickX = clickX;
    event.ClickY = clickY;
    std::string name;
    if (place) {
        name = toolkit::Joined("Graphic #", window);
        t_MouseEventQueue.Append(std::move(event));
    }
    PrintLine("t_MouseEventHandler: ", name, " window, X = ", clickX, ", Y = ", clickY);
    RunProgramHandler();
}

void t_MouseEventPostCloseBoxClick(std::uint8_t window) {
    t_WindowVisible(window, false);
    PrintLine("t_MouseEventPostCloseBoxClick: Window = ", window);
}
