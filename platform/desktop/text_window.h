#pragma once

#include <QtCore/QRect>
#include <QtCore/QSize>
#include <QtCore/QString>

#include "platform/desktop/host_window.h"
#include "platform/desktop/text_pane.h"
#include "platform/geometry.h"
#include "platform/main_queue.h"
#include "platform/window.h"

namespace platform::desktop {

/// A place inside a window's content and the widget that takes it, once there is one.
template <typename Part>
class PlacedPart : public Part {
  public:
    explicit PlacedPart(const platform::desktop::HostWindow& window) : window_(window) {}

    [[nodiscard]] Rect Frame() const override {
        ExpectMain(__func__);
        return frame_;
    }
    void SetFrame(const Rect& frame) override {
        ExpectMain(__func__);
        frame_ = frame;
        LayOut();
    }
    void SetWidget(QWidget* widget) {
        widget_ = widget;
        LayOut();
    }
    /// Gives the widget its place in the content as high as it is now.
    void LayOut() {
        if (widget_ == nullptr) return;
        const double top = window_.ContentSize().height() - frame_.Y - frame_.Height;
        widget_->setGeometry(QRectF(frame_.X, top, frame_.Width, frame_.Height).toRect());
    }

  private:
    const platform::desktop::HostWindow& window_;
    Rect frame_;
    QWidget* widget_ = nullptr;
};

/// A window that shows a text and, when asked for, a ruler above it. The text keeps its distance to
/// all sides when the window is sized, the ruler to the sides and the top. Main thread.
class TextWindow : public HostWindow {
  public:
    TextWindow(Desk& desk, QString title, QSize content, const TextLayout& layout);

    [[nodiscard]] TextWindowParts Parts();

  private:
    void Fill(QWidget& content) override;
    void ContentDidResize(QSize before) override;
    void WillShow() override;
    [[nodiscard]] QSize SmallestContent() const override;

    bool hasRuler_;
    TextPane text_;
    PlacedPart<ScrollView> scroll_;
    PlacedPart<Ruler> ruler_;
};

}  // namespace platform::desktop
