#include "platform/desktop/drawing_area.h"

#include <QtGui/QPainter>
#include <QtGui/QWindow>
#include <cmath>
#include <utility>

#include "platform/desktop/host_window.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/view_widget.h"
#include "platform/main_queue.h"

namespace platform::desktop {

namespace {

QImage Wrap(const Picture& picture) {
    return {picture.Bytes.data(), static_cast<int>(picture.Width), static_cast<int>(picture.Height),
            static_cast<qsizetype>(4 * picture.Width), QImage::Format_RGB32};
}

QSize DevicePixels(const QWidget& widget) {
    const double ratio = widget.devicePixelRatio();
    return {static_cast<int>(std::lround(widget.width() * ratio)),
            static_cast<int>(std::lround(widget.height() * ratio))};
}

bool WholeFactors(const QSize& target, const Picture& picture) {
    return target.width() % picture.Width == 0 && target.height() % picture.Height == 0;
}

}  // namespace

DrawingArea::DrawingArea(platform::desktop::HostWindow& window, ViewClient& client,
                         const Rect& frame)
    : window_(window), client_(client), frame_(frame) {
    picture_.Order = kNativeWordOrder;
}

// The pass comes before the paint event and not with it: only so can the event be one for the rows
// that changed. A window that cannot be seen is asked when it is uncovered.
void DrawingArea::SetNeedsDisplay() {
    ExpectMain(__func__);
    needsDisplay_ = true;
    if (widget_ != nullptr && !std::exchange(passPosted_, true)) {
        QMetaObject::invokeMethod(
            widget_, [this] { MakePass(); }, Qt::QueuedConnection);
    }
}

void DrawingArea::Display() {
    ExpectMain(__func__);
    needsDisplay_ = true;
    if (widget_ == nullptr || asking_) return;
    window_.WaitForExposure();
    if (needsDisplay_ && IsExposed()) widget_->repaint(AskClient());
}

void DrawingArea::MakePass() {
    passPosted_ = false;
    if (needsDisplay_ && !asking_ && IsExposed()) widget_->update(AskClient());
}

Window* DrawingArea::HostWindow() {
    ExpectMain(__func__);
    return &window_;
}

Rect DrawingArea::Frame() const {
    ExpectMain(__func__);
    return frame_;
}

void DrawingArea::SetFrameSize(double width, double height) {
    ExpectMain(__func__);
    frame_.Width = width;
    frame_.Height = height;
    LayOut();
}

void DrawingArea::SetFrameOrigin(double x, double y) {
    ExpectMain(__func__);
    frame_.X = x;
    frame_.Y = y;
    LayOut();
}

void DrawingArea::MakeWidget(QWidget& content) {
    widget_ = new ViewWidget(*this, client_, content);
}

void DrawingArea::LayOut() {
    if (widget_ != nullptr) widget_->LayOut();
}

QRect DrawingArea::PlaceIn(const QSize& widget) const {
    const QSize content = window_.ContentSize();
    const double zoom = LargestZoomIn({QPoint(0, 0), widget}, content, 0);
    const auto left = [&](double x) {
        return static_cast<int>(
            std::lround(widget.width() / 2.0 + (x - content.width() / 2.0) * zoom));
    };
    const auto top = [&](double y) {
        return static_cast<int>(
            std::lround(widget.height() / 2.0 + (content.height() / 2.0 - y) * zoom));
    };
    const QPoint corner(left(frame_.X), top(frame_.Y + frame_.Height));
    return {corner, QSize(left(frame_.X + frame_.Width) - corner.x(), top(frame_.Y) - corner.y())};
}

void DrawingArea::Paint(QWidget& widget) {
    if (needsDisplay_ && !asking_) widget.update(AskClient());
    DrawPicture(widget);
}

// Where the picture changed.
QRect DrawingArea::AskClient() {
    needsDisplay_ = false;
    asking_ = true;
    changed_ = QRect();
    if (client_.wantsUpdateLayer()) {
        client_.updateLayer(*this);
    } else {
        client_.drawRect({0, 0, frame_.Width, frame_.Height}, *this);
    }
    asking_ = false;
    if (needsDisplay_) SetNeedsDisplay();  // asked for meanwhile
    return changed_;
}

Picture& DrawingArea::Buffer() {
    ExpectMain(__func__);
    return picture_;
}

void DrawingArea::Show(const Rows& changed) {
    ExpectMain(__func__);
    if (std::exchange(shown_, true) && changed == Rows{}) return;
    scaledIsOld_ = true;
    changed_ = PlaceOf(changed);
}

bool DrawingArea::IsExposed() const {
    const QWindow* const native = widget_->window()->windowHandle();
    return native != nullptr && native->isExposed();
}

// Where rows of the picture are seen. A row of the widget may show parts of the picture's rows
// beside its own.
QRect DrawingArea::PlaceOf(const Rows& rows) const {
    const double scale = widget_->height() / static_cast<double>(picture_.Height);
    const int top = static_cast<int>(std::floor(static_cast<double>(rows.First) * scale)) - 1;
    const int bottom = static_cast<int>(std::ceil(static_cast<double>(rows.End) * scale)) + 1;
    return {0, top, widget_->width(), bottom - top};
}

bool DrawingArea::HasPicture() const {
    return shown_ && picture_.Width > 0 && picture_.Height > 0 &&
           std::ssize(picture_.Bytes) >= 4 * picture_.Width * picture_.Height;
}

void DrawingArea::DrawPicture(QWidget& widget) {
    const QSize devicePixels = DevicePixels(widget);
    if (!HasPicture()) {
        QPainter(&widget).fillRect(widget.rect(), Qt::black);
    } else if (WholeFactors(devicePixels, picture_)) {
        scaled_ = QImage();
        QPainter(&widget).drawImage(widget.rect(), Wrap(picture_));
    } else {
        DrawSharp(widget, devicePixels);
    }
}

void DrawingArea::DrawSharp(QWidget& widget, const QSize& devicePixels) {
    if (scaled_.size() != devicePixels) {
        scaled_ = QImage(devicePixels, QImage::Format_RGB32);
        scaledIsOld_ = true;
    }
    if (scaled_.isNull()) return;
    if (scaledIsOld_) {
        const auto stride = static_cast<std::int64_t>(scaled_.bytesPerLine() / 4);
        const auto pixels = static_cast<std::size_t>(stride * scaled_.height());
        scaler_.Scale(picture_, scaled_.width(), scaled_.height(),
                      {reinterpret_cast<std::uint32_t*>(scaled_.bits()), pixels}, stride);
        scaledIsOld_ = false;
    }
    scaled_.setDevicePixelRatio(widget.devicePixelRatio());
    QPainter(&widget).drawImage(QPoint(0, 0), scaled_);
}

}  // namespace platform::desktop
