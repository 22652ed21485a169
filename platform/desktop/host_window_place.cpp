#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>
#include <algorithm>
#include <utility>

#include "platform/desktop/desk.h"
#include "platform/desktop/display.h"
#include "platform/desktop/host_window.h"
#include "platform/desktop/placing.h"
#include "platform/main_queue.h"

namespace platform::desktop {

namespace {

// How long a window manager may take to carry out what was asked of it. Until then a report of
// another place may be older than the request.
constexpr int kSettleMs = 300;

// How often a place is asked for: the frame may have come late the first time.
constexpr int kRequests = 2;

constexpr int kBorderlessGrip = 20;  // of a window without a title bar, in points

// Wayland tells no program where its windows are.
bool PlacesAreReal() {
    static const bool real = !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
    return real;
}

}  // namespace

double HostWindow::Zoom() const {
    ExpectMain(__func__);
    if (sizing_ != Sizing::ByZoom) return 1;
    if (shown_.isEmpty()) return FittingZoom();
    return LargestZoomIn(shown_, ContentSize(), 0);
}

double HostWindow::LargestZoom() const {
    ExpectMain(__func__);
    return sizing_ == Sizing::ByZoom ? LargestZoomIn(Room(), ContentSize(), HeightAbove()) : 1;
}

void HostWindow::SetZoom(double zoom) {
    ExpectMain(__func__);
    if (sizing_ != Sizing::ByZoom || !(zoom > 0)) return;
    zoom_ = std::min(zoom, kLargestZoom);
    pulled_.reset();
    if (widget_ == nullptr) return;
    Arrange(InRoom(PlaceToShow()));
}

void HostWindow::ScreensDidChange() {
    if (visible_ && !IsMaximized() && !StandsWell()) Arrange(PlaceToShow());
}

void HostWindow::GeometryChanged() {
    if (!visible_ || requests_ > 0) return;
    Adopt(SeenContent());
    settle_.start(kSettleMs);
}

QRect HostWindow::Room() const {
    return RoomFor(FrameRect(), titled_ ? desk_.Above.Frame() : QMargins(),
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
    return titled_ ? std::max(desk_.Above.TitleBar(), 1) : kBorderlessGrip;
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
    asked ? TakeAnswer(seen) : pulled_.reset();
    Adopt(seen);
    Follow();
}

// The window stands at `seen` after it was asked to stand at shown_.
void HostWindow::TakeAnswer(const QRect& seen) {
    if (seen.size() == shown_.size()) {
        zoom_ = pulled_.value_or(zoom_);
    } else {
        refused_ = seen.size();
    }
    pulled_.reset();
    if (seen == shown_) return;
    Adopt(seen);
    ApplyPlace();
}

bool HostWindow::HasItsSize() const {
    return sizing_ != Sizing::ByZoom || IsMaximized() || shown_.size() == refused_ ||
           shown_.size() == Zoomed(ContentSize(), FittingZoom());
}

// Gives a window that is sized by zoom its proportions back: at the zoom that a person pulled it
// to, or at the one that fits the screen that it was moved to. A person who still pulls or moves
// it would see it jump.
void HostWindow::Follow() {
    if (!HasItsSize() && ButtonHeld()) return settle_.start(kSettleMs);
    const QRect from = std::exchange(rested_, shown_);
    if (HasItsSize()) return;
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

// The widget has what it was given even where the window manager gave the window something else.
QRect HostWindow::SeenContent() const {
    const QRect client = widget_->windowHandle()->geometry();
    const QRect seen = client.adjusted(0, widget_->MenuBarHeight(), 0, 0);
    return PlacesAreReal() ? seen : QRect(shown_.topLeft(), seen.size());
}

}  // namespace platform::desktop
