#include "app/app_delegate.h"

#include <algorithm>
#include <utility>

#include "app/program_name.h"
#include "platform/platform.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/output.h"
#include "toolkit/core/tables.h"
#include "toolkit/core/text_layout.h"
#include "toolkit/core/threads.h"
#include "toolkit/core/window_numbers.h"
#include "toolkit/input/menu_events.h"
#include "toolkit/input/mouse.h"
#include "toolkit/start/quit.h"
#include "toolkit/window/host_windows.h"
#include "toolkit/window/window.h"

using toolkit::IsVisible;
using toolkit::OtherWindow;
using toolkit::PrintLine;

namespace {

// Fits a text window's scroll view, and its ruler, into the frame below the title bar.
void LayOut(const toolkit::Outlets& outlets, const OtherWindow& row, const platform::Rect& frame) {
    platform::ScrollView* const scroll = outlets.*row.Scroll;
    if (scroll == nullptr) return;
    const double height = frame.Height - static_cast<double>(std::int64_t(t_TitleBarHeight));
    const platform::Rect area = TextPlace(*row.Layout, frame.Width, height);
    scroll->SetFrame(area);
    platform::Ruler* const ruler = row.Ruler == nullptr ? nullptr : outlets.*row.Ruler;
    if (ruler == nullptr) return;
    const platform::Rect before = ruler->Frame();
    ruler->SetFrame({before.X, area.Y + area.Height, frame.Width - row.Layout->RulerRest,
                     row.Layout->RulerHeight});
}

std::int64_t VisibleWindows() {
    std::int64_t visible = 0;
    for (std::uint8_t n = 0; n <= toolkit::kMainWindow; ++n) visible += IsVisible(n) ? 1 : 0;
    return visible;
}

// A graphic window that was never set up is black.
bool AnyWindowIsOfUse() {
    for (std::uint8_t n = 0; n <= toolkit::kMainWindow; ++n) {
        const bool blank = n < toolkit::kGraphicWindows && !t_Windows[n].Initialized;
        if (!blank && IsVisible(n)) return true;
    }
    return false;
}

std::string List(const std::vector<std::string>& texts) {
    std::string list;
    for (const std::string& text : texts) {
        if (!list.empty()) list += ", ";
        list += text;
    }
    return list;
}

}  // namespace

AppDelegate::AppDelegate(std::function<void()> program, std::function<void()> programIsOver)
    : run_(std::move(program), [this, tell = std::move(programIsOver)] {
          if (!AnyWindowIsOfUse()) ShowMainWindow();
          if (tell) tell();
      }) {
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
    searched_ = platform::Current().Resources->SearchedInVain();
    if (!searched_.empty()) {
        PrintLine("applicationDidFinishLaunching: Resources not found in ", List(searched_), ".");
    }
    PrintLine("Program: Start.");
    run_.Start();
    PrintLine("applicationDidFinishLaunching: End.");
}

void AppDelegate::applicationWillTerminate() {
    PrintLine("applicationWillTerminate: Called.");
    t_TerminateHandler();
}

// The main window would come back as soon as it is hidden; other windows leave it behind.
bool AppDelegate::windowShouldClose(platform::Window& window) {
    const bool isLast = window.IsVisible() && VisibleWindows() == 1;
    if (!isLast || &window != MainWindow) {
        t_MouseEventPostCloseBoxClick(toolkit::WindowNumber(&window));
        if (isLast) ShowMainWindow();
    }
    if (isLast) platform::PostToMain([this] { AskWhetherToQuit(); });
    return false;
}

void AppDelegate::windowDidResize(platform::Window& /*window*/) {
    platform::Window* const main = platform::Current().Application->ActiveWindow();
    const OtherWindow* const row = toolkit::OtherWindowOf(toolkit::WindowNumber(main));
    if (row != nullptr && row->Scroll != nullptr) LayOut(*this, *row, main->Frame());
}

void AppDelegate::titleBarHeightDidChange(std::int64_t height) {
    const std::int64_t before = t_TitleBarHeight;
    t_TitleBarHeight = height;
    for (t_Window& w : t_Windows) {
        if (w.TitleHeight != 0 && w.TitleHeight == before) w.TitleHeight = height;
    }
}

void AppDelegate::lastWindowDidHide() {
    ShowMainWindow();
}

void AppDelegate::applicationDidSettle() {
    if (!AnyWindowIsOfUse() || !searched_.empty()) ShowMainWindow();
}

std::string AppDelegate::Notice() const {
    std::string notice;
    if (!searched_.empty()) {
        notice = "Die Schriften und Töne wurden nicht gefunden. Gesucht wurde in " +
                 List(searched_) + ". ";
    }
    notice += WhatBecameOfTheProgram();
    if (!notice.empty()) notice += "Einzelheiten stehen in der Systemkonsole.";
    return notice;
}

std::string AppDelegate::WhatBecameOfTheProgram() const {
    const bool opened = std::any_of(t_Windows.begin(), t_Windows.end(),
                                    [](const t_Window& w) -> bool { return w.Initialized; });
    switch (run_.Now()) {
        case ProgramRun::State::NotPossible:
            return "Das Programm konnte nicht gestartet werden: " + run_.Fault() + ". ";
        case ProgramRun::State::Ended:
            return opened ? "Das Programm ist zu Ende. "
                          : "Das Programm ist zu Ende, ohne ein Fenster geöffnet zu haben. ";
        case ProgramRun::State::Running:
            return opened ? "" : "Das Programm läuft, hat aber noch kein Fenster geöffnet. ";
        case ProgramRun::State::NotStarted:
            break;
    }
    return "";
}

void AppDelegate::ShowMainWindow() const {
    if (MainWindow != nullptr) MainWindow->MakeKeyAndOrderFront();
}

void AppDelegate::AskWhetherToQuit() {
    if (std::exchange(asking_, true)) return;
    const std::int64_t answer = platform::Current().Panels->RunAlert(
        {"Möchten Sie " + ProgramName() + " beenden?", "", {"Beenden", "Abbrechen"}});
    asking_ = false;
    if (answer == 0) platform::Current().Application->Terminate();
}

void AppDelegate::MenuHandler(const platform::MenuItem& item) {
    t_MenuEventHandler(item);
}

std::int64_t AppDelegate::MeasuredTitleBarHeight() const {
    if (PasteboardWindow == nullptr || PasteboardScrollView == nullptr) return 0;
    return toolkit::Truncated(PasteboardWindow->Frame().Height -
                              PasteboardScrollView->Frame().Height -
                              toolkit::kPlainText.RestOfHeight);
}
