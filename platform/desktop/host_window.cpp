#include "platform/desktop/host_window.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QThread>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <algorithm>
#include <utility>

#include "platform/desktop/desk.h"
#include "platform/desktop/seam_rect.h"
#include "platform/desktop/text.h"
#include "platform/main_queue.h"
#include "platform/platform.h"

namespace platform::desktop {

namespace {

// All that were made; they live as long as the process.
std::vector<HostWindow*>& Windows() {
    static auto* const windows = new std::vector<HostWindow*>;
    return *windows;
}

HostWindow* lastActive = nullptr;

constexpr int kExposureMs = 100;
constexpr unsigned long kExposureStepUs = 500;

bool AnythingVisible() {
    return std::ranges::any_of(Windows(), &HostWindow::IsVisible);
}

}  // namespace

HostWindow::HostWindow(Desk& desk, QString title, QSize content, Sizing sizing, Keys keys)
    : desk_(desk),
      title_(std::move(title)),
      content_(QPoint(0, 0), content),
      sizing_(sizing),
      keys_(keys) {
    Windows().push_back(this);
    settle_.setSingleShot(true);
    QObject::connect(&settle_, &QTimer::timeout, [this] { Settle(); });
}

Rect HostWindow::Frame() const {
    ExpectMain(__func__);
    return ToSeam(FrameRect());
}

Rect HostWindow::ScreenFrame() const {
    ExpectMain(__func__);
    const QScreen* const screen = widget_ != nullptr ? widget_->screen() : nullptr;
    return ToSeam((screen != nullptr ? screen : QGuiApplication::primaryScreen())->geometry());
}

void HostWindow::SetFrame(const Rect& frame) {
    ExpectMain(__func__);
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
    ExpectMain(__func__);
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

bool HostWindow::IsVisible() const {
    ExpectMain(__func__);
    return visible_;
}

void HostWindow::OrderFront() {
    ExpectMain(__func__);
    Show(false);
}

void HostWindow::MakeKeyAndOrderFront() {
    ExpectMain(__func__);
    Show(true);
}

void HostWindow::OrderOut() {
    ExpectMain(__func__);
    if (!visible_) return;
    visible_ = false;
    if (lastActive == this) lastActive = nullptr;
    settle_.stop();
    widget_->hide();
    TellWhenNothingIsVisible();
}

void HostWindow::SetTitle(std::string_view title) {
    ExpectMain(__func__);
    title_ = ToQt(title);
    if (widget_ != nullptr) widget_->setWindowTitle(title_);
}

void HostWindow::SetStyleMask(std::int64_t mask) {
    ExpectMain(__func__);
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
        widget_->SetMenuBarHeight(titled ? desk_.Above.MenuBar() : 0);
    }
    Place(frame.adjusted(0, HeightAbove(), 0, 0));
}

void HostWindow::SetBackgroundColor(Color color) {
    ExpectMain(__func__);
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
    desk_.Pump.Hold();
    while (!native->isExposed() && !patience.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        QThread::usleep(kExposureStepUs);
    }
    desk_.Pump.Release();
}

void HostWindow::Prepare() {
    MakeWidget();
    static_cast<void>(widget_->winId());
}

const std::vector<HostWindow*>& HostWindow::All() {
    return Windows();
}

HostWindow* HostWindow::LastActive() {
    return lastActive;
}

void HostWindow::CloseRequested() {
    ApplicationClient* const client = desk_.Listener();
    if (client == nullptr || !client->windowShouldClose(*this)) return;
    client->windowWillClose(*this);
    OrderOut();
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
    return titled_ ? desk_.Above.Height() : 0;
}

void HostWindow::MakeWidget() {
    if (widget_ != nullptr) return;
    widget_ = new HostWidget(*this, desk_.Bar, keys_);
    widget_->setWindowTitle(title_);
    widget_->setWindowFlag(Qt::FramelessWindowHint, !titled_);
    widget_->SetMenuBarHeight(titled_ ? desk_.Above.MenuBar() : 0);
    ApplyBackground();
    Fill(widget_->Content());
    shown_ = PlaceToShow();
    ApplyPlace();
}

void HostWindow::Show(bool activate) {
    MakeWidget();
    if (!visible_) {
        if (!everPlaced_) KeepInRoom();
        if (!everPlaced_) Center();
        WillShow();
        if (!StandsWell()) shown_ = PlaceToShow();
        visible_ = true;
        exposureDue_ = true;
        Ask();
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
    if (widget_ != nullptr) Arrange(PlaceToShow());
    if (before != content.size()) Resized(before);
}

void HostWindow::Resized(QSize before) {
    ContentDidResize(before);
    if (ApplicationClient* const client = desk_.Listener()) client->windowDidResize(*this);
}

// Only of windows in their usual state: a maximised one may have a thinner title bar or none.
void HostWindow::LookAtTitleBar() {
    const QWindow* const native = widget_->windowHandle();
    if (!titled_ || !visible_ || native == nullptr || !native->isExposed()) return;
    if (native->windowStates() != Qt::WindowNoState) return;
    desk_.Above.FrameSeen(native->frameMargins());
}

void HostWindow::ApplyBackground() {
    if (widget_ == nullptr || !background_) return;
    QPalette palette = widget_->Content().palette();
    palette.setColor(QPalette::Window,
                     QColor(background_->Red, background_->Green, background_->Blue));
    widget_->Content().setPalette(palette);
}

// Tells the client once nothing of ours is left on the screen, after the current event, unless a
// window is shown by then. A minimised window is on the screen.
void HostWindow::TellWhenNothingIsVisible() {
    if (AnythingVisible()) return;
    PostToMain([&desk = desk_] {
        ApplicationClient* const client = desk.Listener();
        if (client == nullptr || AnythingVisible()) return;
        if (client->applicationShouldTerminateAfterLastWindowClosed()) {
            Current().Application->Terminate();
        } else {
            client->lastWindowDidHide();
        }
    });
}

}  // namespace platform::desktop
