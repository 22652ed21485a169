#include "platform/desktop/host_window.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QThread>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/desktop/desk.h"
#include "platform/desktop/text.h"

namespace platform::desktop {

namespace {

HostWindow* lastActive = nullptr;

// How long a window manager may take to carry out what was asked of it. Until then a report of
// another place may be older than the request.
constexpr int kSettleMs = 300;

constexpr int kExposureMs = 100;
constexpr unsigned long kExposureStepUs = 500;

// The seam's origin is the lower left corner of the first screen.
QPoint Origin() {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    return {screen.left(), screen.top() + screen.height()};
}

Rect ToSeam(const QRect& rect) {
    const QPoint origin = Origin();
    return {static_cast<double>(rect.left() - origin.x()),
            static_cast<double>(origin.y() - rect.top() - rect.height()),
            static_cast<double>(rect.width()), static_cast<double>(rect.height())};
}

int Whole(double value) {
    constexpr double kLargest = 1 << 20;
    return static_cast<int>(std::lround(std::clamp(value, -kLargest, kLargest)));
}

QRect FromSeam(const Rect& rect) {
    const QPoint origin = Origin();
    return {origin.x() + Whole(rect.X), origin.y() - Whole(rect.Y) - Whole(rect.Height),
            Whole(rect.Width), Whole(rect.Height)};
}

// Wayland tells no program where its windows are.
bool PlacesAreReal() {
    static const bool real = !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
    return real;
}

}  // namespace

HostWindow::HostWindow(QString title, QSize content, Sizing sizing, Keys keys)
    : title_(std::move(title)), content_(QPoint(0, 0), content), sizing_(sizing), keys_(keys) {
    TheDesk().Windows.push_back(this);
    settle_.setSingleShot(true);
    QObject::connect(&settle_, &QTimer::timeout, [this] { Settle(); });
}

Rect HostWindow::Frame() const {
    return ToSeam(FrameRect());
}

Rect HostWindow::ScreenFrame() const {
    const QScreen* const screen = widget_ != nullptr ? widget_->screen() : nullptr;
    return ToSeam((screen != nullptr ? screen : QGuiApplication::primaryScreen())->geometry());
}

void HostWindow::SetFrame(const Rect& frame) {
    // A window that was given a size but no place yet still gets its place when it is shown.
    const Rect before = Frame();
    everPlaced_ = everPlaced_ || frame.X != before.X || frame.Y != before.Y;
    QRect content = FromSeam(frame).adjusted(0, HeightAbove(), 0, 0);
    if (content.width() < 1) content.setWidth(1);
    if (content.height() < 1) content.setTop(content.bottom());
    centred_ = false;
    Place(content);
}

void HostWindow::Center() {
    const QScreen* const screen = widget_ != nullptr ? widget_->screen() : nullptr;
    const QRect room =
        (screen != nullptr ? screen : QGuiApplication::primaryScreen())->availableGeometry();
    QRect frame = FrameRect();
    frame.moveCenter(room.center());
    // Of a window that is too large its upper left corner can be reached.
    frame.moveTopLeft({std::max(frame.left(), room.left()), std::max(frame.top(), room.top())});
    centred_ = true;
    everPlaced_ = true;
    Place(frame.adjusted(0, HeightAbove(), 0, 0));
}

void HostWindow::OrderFront() {
    Show(false);
}

void HostWindow::MakeKeyAndOrderFront() {
    Show(true);
}

void HostWindow::OrderOut() {
    if (!visible_) return;
    visible_ = false;
    if (lastActive == this) lastActive = nullptr;
    settle_.stop();
    widget_->hide();
    TellWhenNothingIsVisible();
}

void HostWindow::SetTitle(std::string_view title) {
    title_ = ToQt(title);
    if (widget_ != nullptr) widget_->setWindowTitle(title_);
}

void HostWindow::SetStyleMask(std::int64_t mask) {
    const bool titled = mask != kBorderless;
    if (titled == titled_) return;
    const QRect frame = FrameRect();
    titled_ = titled;
    if (widget_ != nullptr) {
        // The native window changes in place; the widget would be hidden by a change of its own.
        if (QWindow* const native = widget_->windowHandle(); native != nullptr) {
            native->setFlag(Qt::FramelessWindowHint, !titled);
        }
        widget_->overrideWindowFlags(
            widget_->windowFlags().setFlag(Qt::FramelessWindowHint, !titled));
        widget_->SetMenuBarHeight(titled ? TheDesk().Above.MenuBar() : 0);
    }
    Place(frame.adjusted(0, HeightAbove(), 0, 0));
}

void HostWindow::SetBackgroundColor(Color color) {
    background_ = color;
    ApplyBackground();
}

void HostWindow::TitleBarDidChange() {
    if (centred_ && titled_) Center();
}

void HostWindow::WaitForExposure() {
    if (!visible_ || !std::exchange(exposureDue_, false)) return;
    const QWindow* const native = widget_->windowHandle();
    const QDeadlineTimer patience(kExposureMs);
    QueuePump& pump = TheDesk().Pump;
    pump.Hold();
    while (!native->isExposed() && !patience.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        QThread::usleep(kExposureStepUs);
    }
    pump.Release();
}

void HostWindow::Prepare() {
    MakeWidget();
    static_cast<void>(widget_->winId());
}

HostWindow* HostWindow::LastActive() {
    return lastActive;
}

void HostWindow::CloseRequested() {
    Desk& desk = TheDesk();
    if (desk.Client == nullptr || desk.Ending || !desk.Client->windowShouldClose(*this)) return;
    desk.Client->windowWillClose(*this);
    OrderOut();
}

void HostWindow::GeometryChanged() {
    if (!visible_ || (placed_ && settle_.isActive())) return;
    Adopt();
    settle_.start(kSettleMs);
}

void HostWindow::Activated() {
    lastActive = this;
}

const QRect& HostWindow::Content() const {
    if (content_.isEmpty()) content_.setSize(const_cast<HostWindow*>(this)->FirstSize());
    return content_;
}

QRect HostWindow::FrameRect() const {
    return Content().adjusted(0, -HeightAbove(), 0, 0);
}

int HostWindow::HeightAbove() const {
    return titled_ ? TheDesk().Above.Height() : 0;
}

void HostWindow::MakeWidget() {
    if (widget_ != nullptr) return;
    widget_ = new HostWidget(*this, keys_);
    widget_->setWindowTitle(title_);
    widget_->setWindowFlag(Qt::FramelessWindowHint, !titled_);
    widget_->SetMenuBarHeight(titled_ ? TheDesk().Above.MenuBar() : 0);
    ApplyBackground();
    Fill(widget_->Content());
    ApplyPlace();
}

void HostWindow::Show(bool activate) {
    MakeWidget();
    if (!visible_) {
        if (!everPlaced_) Center();
        WillShow();
        ApplyPlace();
        visible_ = true;
        exposureDue_ = true;
        placed_ = true;
        settle_.start(kSettleMs);
        widget_->setAttribute(Qt::WA_ShowWithoutActivating, !activate);
        if (QWindow* const native = widget_->windowHandle(); native != nullptr) {
            native->setProperty("_q_showWithoutActivating", !activate);
        }
        widget_->show();
    }
    if (widget_->isMinimized())
        widget_->setWindowState(widget_->windowState() & ~Qt::WindowMinimized);
    widget_->raise();
    if (activate) widget_->activateWindow();
}

void HostWindow::Place(const QRect& content) {
    const QSize before = ContentSize();
    content_ = content;
    placed_ = true;
    if (visible_) settle_.start(kSettleMs);
    if (widget_ != nullptr && (widget_->isMaximized() || widget_->isFullScreen())) {
        widget_->setWindowState(Qt::WindowNoState);
    }
    ApplyPlace();
    if (before != content.size()) Resized(before);
}

void HostWindow::ApplyPlace() {
    if (widget_ == nullptr) return;
    const QRect client = Content().adjusted(0, -widget_->MenuBarHeight(), 0, 0);
    // Freed for the change, so that place and size change in one step on the screen.
    if (sizing_ == Sizing::Fixed && client.size() != widget_->size()) {
        widget_->setMinimumSize(0, 0);
        widget_->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    }
    widget_->setGeometry(client);
    if (sizing_ == Sizing::Fixed) widget_->setFixedSize(client.size());
    widget_->LayOut();
}

// What the window manager made of a request, or the person of the window.
void HostWindow::Settle() {
    exposureDue_ = false;
    LookAtTitleBar();
    if (placed_ && SeenContent() != content_) {  // ask once more: the frame may have come late
        settle_.start(kSettleMs);
        ApplyPlace();
    } else {
        Adopt();
    }
    placed_ = false;
}

void HostWindow::Adopt() {
    const QRect seen = SeenContent();
    if (seen == content_) return;
    centred_ = false;
    const QSize before = content_.size();
    content_ = PlacesAreReal() ? seen : QRect(content_.topLeft(), seen.size());
    if (before != content_.size()) Resized(before);
}

QRect HostWindow::SeenContent() const {
    return widget_->geometry().adjusted(0, widget_->MenuBarHeight(), 0, 0);
}

void HostWindow::Resized(QSize before) {
    ContentDidResize(before);
    Desk& desk = TheDesk();
    if (desk.Client != nullptr && !desk.Ending) desk.Client->windowDidResize(*this);
}

// Only of windows in their usual state: a maximised one may have a thinner title bar or none.
void HostWindow::LookAtTitleBar() {
    const QWindow* const native = widget_->windowHandle();
    if (!titled_ || !visible_ || native == nullptr || !native->isExposed()) return;
    if (native->windowStates() != Qt::WindowNoState) return;
    TheDesk().Above.TitleBarSeen(native->frameMargins().top());
}

void HostWindow::ApplyBackground() {
    if (widget_ == nullptr || !background_) return;
    QPalette palette = widget_->Content().palette();
    palette.setColor(QPalette::Window,
                     QColor(background_->Red, background_->Green, background_->Blue));
    widget_->Content().setPalette(palette);
}

}  // namespace platform::desktop
