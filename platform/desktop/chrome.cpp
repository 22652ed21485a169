#include "platform/desktop/chrome.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStyle>
#include <chrono>
#include <cmath>

#include "platform/desktop/desk.h"
#include "platform/desktop/display.h"
#include "platform/desktop/host_window.h"

namespace platform::desktop {

namespace {

int MeasureMenuBar() {
    QMenuBar bar;
    bar.setNativeMenuBar(false);
    bar.addAction(QStringLiteral("Ablage"));
    return bar.sizeHint().height();
}

int MeasureTitleBar() {
    if (QGuiApplication::platformName() != QLatin1String("xcb")) {
        QWindow window;
        window.create();
        return window.frameMargins().top();
    }
    const std::optional<int> pixels = AskTitleBarHeight(std::chrono::milliseconds(200));
    if (!pixels) return QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const double scale = QGuiApplication::primaryScreen()->devicePixelRatio();
    return static_cast<int>(std::lround(*pixels / scale));
}

}  // namespace

void Chrome::Measure() {
    static_cast<void>(Height());
}

int Chrome::MenuBar() {
    if (menuBar_ == kUnknown) menuBar_ = MeasureMenuBar();
    return menuBar_;
}

int Chrome::TitleBar() {
    if (titleBar_ == kUnknown) titleBar_ = MeasureTitleBar();
    return titleBar_;
}

void Chrome::TitleBarSeen(int height) {
    if (height == TitleBar()) return;
    titleBar_ = height;
    Desk& desk = TheDesk();
    for (HostWindow* const window : desk.Windows) window->TitleBarDidChange();
    if (desk.Client != nullptr && !desk.Ending) {
        desk.Client->titleBarHeightDidChange(Height());
    }
}

}  // namespace platform::desktop
