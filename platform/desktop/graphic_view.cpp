#include "platform/desktop/graphic_view.h"

#include <QtGui/QPainter>
#include <cmath>

#include "platform/desktop/graphic_window.h"
#include "platform/desktop/view_widget.h"

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

GraphicView::GraphicView(GraphicWindow& window, ViewClient& client, const Rect& frame)
    : window_(window), client_(client), frame_(frame) {
    picture_.Order = kNativeWordOrder;
}

void GraphicView::SetNeedsDisplay() {
    needsDisplay_ = true;
    if (widget_ != nullptr) widget_->update();
}

void GraphicView::Display() {
    SetNeedsDisplay();
    if (widget_ == nullptr || asking_) return;
    window_.WaitForExposure();
    if (needsDisplay_) widget_->repaint();  // does nothing while nothing of the window is exposed
}

Window* GraphicView::HostWindow() {
    return &window_;
}

void GraphicView::SetFrameSize(double width, double height) {
    frame_.Width = width;
    frame_.Height = height;
    if (widget_ != nullptr) widget_->LayOut();
}

void GraphicView::SetFrameOrigin(double x, double y) {
    frame_.X = x;
    frame_.Y = y;
    if (widget_ != nullptr) widget_->LayOut();
}

void GraphicView::MakeWidget(QWidget& content) {
    widget_ = new ViewWidget(*this, client_, content);
}

void GraphicView::Paint(QWidget& widget) {
    if (needsDisplay_ && !asking_) AskClient();
    DrawPicture(widget);
}

void GraphicView::AskClient() {
    needsDisplay_ = false;
    asking_ = true;
    if (client_.wantsUpdateLayer()) {
        client_.updateLayer(*this);
    } else {
        client_.drawRect({0, 0, frame_.Width, frame_.Height}, *this);
    }
    asking_ = false;
}

void GraphicView::Show() {
    shown_ = true;
    scaledIsOld_ = true;
}

bool GraphicView::HasPicture() const {
    return shown_ && picture_.Width > 0 && picture_.Height > 0 &&
           std::ssize(picture_.Bytes) >= 4 * picture_.Width * picture_.Height;
}

void GraphicView::DrawPicture(QWidget& widget) {
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

void GraphicView::DrawSharp(QWidget& widget, const QSize& devicePixels) {
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
