#include "app/app_delegate.h"

#include <utility>

#include "platform/platform.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/output.h"
#include "toolkit/core/runtime.h"
#include "toolkit/core/tables.h"
#include "toolkit/input/menu_events.h"
#include "toolkit/input/mouse.h"
#include "toolkit/window/host_windows.h"
#include "toolkit/window/window.h"

using toolkit::PrintLine;

namespace {

// Above and below the pasteboard's scroll view, together.
constexpr double kPasteboardMargins = 20;

// How a text window is laid out in a frame of width W and height H below a title bar of height T:
// the scroll view takes W - Width by H - T - Height at (Inset, Inset), the ruler W - RulerWidth.
struct LayoutRow {
    std::uint8_t Window;
    platform::ScrollView* toolkit::Outlets::*Scroll;
    platform::Ruler* toolkit::Outlets::*Ruler;  // nullptr: none
    double Width;
    double Height;
    double Inset;
};

constexpr double kRulerWidth = 48;
constexpr double kRulerHeight = 19;

constexpr LayoutRow kLayouts[] = {
    {toolkit::kPasteboardWindow, &AppDelegate::PasteboardScrollView, nullptr, 20, 20, 10},
    {toolkit::kPrinterWindow, &AppDelegate::VirtualPrinterScrollView,
     &AppDelegate::VirtualPrinterRuler, 40, 55, 20},
    {toolkit::kConsoleWindow, &AppDelegate::SystemConsoleScrollView,
     &AppDelegate::SystemConsoleRuler, 40, 55, 20},
};

void LayOut(const toolkit::Outlets& outlets, const LayoutRow& row, const platform::Rect& frame) {
    platform::ScrollView* const scroll = outlets.*row.Scroll;
    if (scroll == nullptr) return;
    const double height = frame.Height - static_cast<double>(std::int64_t(t_TitleBarHeight));
    const platform::Rect area{row.Inset, row.Inset, frame.Width - row.Width, height - row.Height};
    scroll->SetFrame(area);
    platform::Ruler* const ruler = row.Ruler == nullptr ? nullptr : outlets.*row.Ruler;
    if (ruler == nullptr) return;
    const platform::Rect before = ruler->Frame();
    ruler->SetFrame({before.X, area.Y + area.Height, frame.Width - kRulerWidth, kRulerHeight});
}

}  // namespace

AppDelegate::AppDelegate(std::function<void()> program) : program_(std::move(program)) {
    t_AppDelegate = this;
}

void AppDelegate::applicationWillFinishLaunching() {
    PrintLine("applicationWillFinishLaunching: Called.");
    if (t_ThreadNumber() == 1) platform::NameThread("AppDelegate");
}

void AppDelegate::applicationDidFinishLaunching() {
    PrintLine("applicationDidFinishLaunching: Start.");
    initvxtools();
    t_TitleBarHeight = MeasuredTitleBarHeight();
    PrintLine("Program: Start.");
    startprocess(program_, kProgramStack);
    PrintLine("applicationDidFinishLaunching: End.");
}

void AppDelegate::applicationWillTerminate() {
    PrintLine("applicationWillTerminate: Called.");
    t_TerminateHandler();
}

bool AppDelegate::windowShouldClose(platform::Window& window) {
    t_MouseEventPostCloseBoxClick(toolkit::WindowNumber(&window));
    return false;
}

void AppDelegate::windowDidResize(platform::Window& /*window*/) {
    platform::Window* const main = platform::Current().App->MainWindow();
    const std::uint8_t number = toolkit::WindowNumber(main);
    for (const LayoutRow& row : kLayouts) {
        if (row.Window == number) LayOut(*this, row, main->Frame());
    }
}

void AppDelegate::titleBarHeightDidChange(std::int64_t height) {
    const std::int64_t before = t_TitleBarHeight;
    t_TitleBarHeight = height;
    for (t_Window& w : t_Windows) {
        if (w.TitleHeight != 0 && w.TitleHeight == before) w.TitleHeight = height;
    }
}

void AppDelegate::lastWindowDidHide() {
    if (MainWindow != nullptr) MainWindow->MakeKeyAndOrderFront();
}

void AppDelegate::MenuHandler(const platform::MenuItem& item) {
    t_MenuEventHandler(item);
}

std::int64_t AppDelegate::MeasuredTitleBarHeight() const {
    if (PasteboardWindow == nullptr || PasteboardScrollView == nullptr) return 0;
    return toolkit::Truncated(PasteboardWindow->Frame().Height -
                              PasteboardScrollView->Frame().Height - kPasteboardMargins);
}
