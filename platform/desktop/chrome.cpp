#include "platform/desktop/chrome.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStyle>
#include <chrono>

#include "platform/desktop/display.h"

namespace platform::desktop {

namespace {

int MeasureMenuBar() {
    QMenuBar bar;
    bar.setNativeMenuBar(false);
    bar.addAction(QStringLiteral("Ablage"));
    return bar.sizeHint().height();
}

QMargins MeasureFrame() {
    if (QGuiApplication::platformName() != QLatin1String("xcb")) {
        QWindow window;
        window.create();
        return window.frameMargins();
    }
    const std::optional<FrameSides> pixels = AskFrameSides(std::chrono::milliseconds(200));
    if (!pixels) return {0, QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight), 0, 0};
    const double scale = QGuiApplication::primaryScreen()->devicePixelRatio();
    return (QMarginsF(pixels->Left, pixels->Top, pixels->Right, pixels->Bottom) / scale)
        .toMargins();
}

}  // namespace

void Chrome::Measure() {
    static_cast<void>(Height());
}

int Chrome::MenuBar() {
    if (menuBar_ == kUnknown) menuBar_ = MeasureMenuBar();
    return menuBar_;
}

const QMargins& Chrome::Frame() {
    if (frame_.top() == kUnknown) frame_ = MeasureFrame();
    return frame_;
}

void Chrome::FrameSeen(const QMargins& frame) {
    const int before = TitleBar();
    frame_ = frame;
    if (TitleBar() != before && Changed) Changed();
}

}  // namespace platform::desktop
