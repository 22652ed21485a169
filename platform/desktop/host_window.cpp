#include "platform/desktop/host_window.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QThread>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <algorithm>
#include <utility>

#include "platform/desktop/desk.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/seam_rect.h"
#include "platform/desktop/text.h"

namespace platform::desktop {

namespace {

HostWindow* lastActive = nullptr;

// How long a window manager may take to carry out what was asked of it. Until then a report of
// another place may be older than the request.
constexpr int kSettleMs = 300;

// How often a place is asked for: the frame may have come late the first time.
constexpr int kRequests = 2;

constexpr double kLargestZoom = 16;
constexpr int kBorderlessGrip = 20;  // of a window without a title bar, in points

constexpr int kExposureMs = 100;
constexpr unsigned long kExposureStepUs = 500;

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

double HostWindow::Zoom() const {
    if (sizing_ != Sizing::ByZoom) return 1;
    if (shown_.isEmpty()) return FittingZoom();
    return LargestZoomIn(shown_, ContentSize(), 0);
}

double HostWindow::LargestZoom() const {
    return sizing_ == Sizing::ByZoom ? LargestZoomIn(Room(), ContentSize(), HeightAbove()) : 1;
}

void HostWindow::SetZoom(double zoom) {
    if (sizing_ != Sizing::ByZoom || !(zoom > 0)) return;
    zoom_ = std::min(zoom, kLargestZoom);
    pulled_.reset();
    if (widget_ == nullptr) return;
    Arrange(InRoom(PlaceToShow()));
}

void HostWindow::TitleBarDidChange() {
    if (centred_ && titled_) Center();
}

void HostWindow::ScreensDidChange() {
    if (visible_ && !IsMaximized() && !StandsWell()) Arrange(PlaceToShow());
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
    if (!visible_ || requests_ > 0) return;
    Adopt(SeenContent());
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
    Desk& desk = TheDesk();
    if (desk.Client != nullptr && !desk.Ending) desk.Client->windowDidResize(*this);
}

QRect HostWindow::Room() const {
    return RoomFor(FrameRect(), titled_ ? TheDesk().Above.Frame() : QMargins(),
                   widget_ != nullptr ? widget_->screen() : nullptr);
}

double HostWindow::FittingZoom() const {
    return std::min(pulled_.value_or(zoom_), LargestZoom());
}

// Where the content of the frame belongs on the screen.
QRect HostWindow::PlaceToShow() const {
    const QRect frame = FrameRect();
    const int above = HeightAbove();
    const QSize size = Zoomed(ContentSize(), FittingZoom());
    const QRect shown = size == ContentSize()
                            ? BroughtBack(frame, Room(), Grip())
                            : AboutCentreOf(frame, size + QSize(0, above), Room());
    return shown.adjusted(0, above, 0, 0);
}

// A place of the content, moved so that the screen shows all of the window.
QRect HostWindow::InRoom(const QRect& shown) const {
    const int above = HeightAbove();
    return MovedInto(Room(), shown.adjusted(0, -above, 0, 0)).adjusted(0, above, 0, 0);
}

bool HostWindow::StandsWell() const {
    const QSize size = Zoomed(ContentSize(), FittingZoom());
    return shown_.size() == size && CanBePulled(shown_.adjusted(0, -HeightAbove(), 0, 0), Grip());
}

int HostWindow::Grip() const {
    return titled_ ? std::max(TheDesk().Above.TitleBar(), 1) : kBorderlessGrip;
}

// A window that a person may size starts no larger than the screen.
void HostWindow::KeepInRoom() {
    if (sizing_ != Sizing::ByPerson) return;
    const QSize before = ContentSize();
    const QSize size = before.boundedTo(Room().size() - QSize(0, HeightAbove()));
    if (size == before || size.isEmpty()) return;
    content_.setSize(size);
    Resized(before);
}

void HostWindow::Arrange(const QRect& shown) {
    shown_ = shown;
    if (IsMaximized()) widget_->setWindowState(Qt::WindowNoState);
    Ask();
}

void HostWindow::Ask() {
    rested_ = shown_;
    requests_ = kRequests;
    refused_ = QSize();
    if (visible_) settle_.start(kSettleMs);
    ApplyPlace();
}

void HostWindow::ApplyPlace() {
    const QSize bar(0, widget_->MenuBarHeight());
    const QRect client = shown_.adjusted(0, -bar.height(), 0, 0);
    // Freed for the change, so that place and size change in one step on the screen.
    if (client.size() != widget_->size()) {
        widget_->setMinimumSize(0, 0);
        widget_->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    }
    widget_->setGeometry(client);
    if (sizing_ == Sizing::Fixed) {
        widget_->setFixedSize(client.size());
    } else {
        widget_->setMinimumSize(SmallestContent().boundedTo(shown_.size()) + bar);
    }
    widget_->LayOut();
}

bool HostWindow::IsMaximized() const {
    return widget_->isMaximized() || widget_->isFullScreen();
}

// What the window manager made of a request, or the person of the window.
void HostWindow::Settle() {
    exposureDue_ = false;
    LookAtTitleBar();
    const QRect seen = SeenContent();
    const bool asked = requests_ > 0 && !IsMaximized();
    if (asked && seen != shown_ && --requests_ > 0) {
        settle_.start(kSettleMs);
        ApplyPlace();
        return;
    }
    requests_ = 0;
    if (asked && seen.size() != shown_.size()) {
        refused_ = seen.size();
        pulled_.reset();
    } else if (asked) {
        zoom_ = std::exchange(pulled_, std::nullopt).value_or(zoom_);
    }
    Adopt(seen);
    Follow();
}

// Gives a window that is sized by zoom its proportions back: at the zoom that a person pulled it
// to, or at the one that fits the screen that it was moved to.
void HostWindow::Follow() {
    const QRect from = std::exchange(rested_, shown_);
    if (sizing_ != Sizing::ByZoom || IsMaximized() || shown_.size() == refused_) return;
    if (shown_.size() == Zoomed(ContentSize(), FittingZoom())) return;
    if (shown_.size() != from.size()) pulled_ = PulledZoom(ContentSize(), from, shown_);
    Adopt(InRoom(KeepingSides(from, shown_, Zoomed(ContentSize(), FittingZoom()))));
    Ask();
}

void HostWindow::Adopt(const QRect& seen) {
    if (seen == shown_) return;
    centred_ = false;
    const QRect shown = std::exchange(shown_, seen);
    if (sizing_ == Sizing::ByZoom) {
        content_.translate(Way(shown, seen));
        return;
    }
    const QSize before = content_.size();
    content_ = {content_.topLeft() + seen.topLeft() - shown.topLeft(), seen.size()};
    if (before != content_.size()) Resized(before);
}

QRect HostWindow::SeenContent() const {
    const QRect seen = widget_->geometry().adjusted(0, widget_->MenuBarHeight(), 0, 0);
    return PlacesAreReal() ? seen : QRect(shown_.topLeft(), seen.size());
}

// Only of windows in their usual state: a maximised one may have a thinner title bar or none.
void HostWindow::LookAtTitleBar() {
    const QWindow* const native = widget_->windowHandle();
    if (!titled_ || !visible_ || native == nullptr || !native->isExposed()) return;
    if (native->windowStates() != Qt::WindowNoState) return;
    TheDesk().Above.FrameSeen(native->frameMargins());
}

void HostWindow::ApplyBackground() {
    if (widget_ == nullptr || !background_) return;
    QPalette palette = widget_->Content().palette();
    palette.setColor(QPalette::Window,
                     QColor(background_->Red, background_->Green, background_->Blue));
    widget_->Content().setPalette(palette);
}

}  // namespace platform::desktop
