#pragma once

#include <QtCore/QRect>
#include <QtCore/QSize>
#include <QtGui/QImage>
#include <QtWidgets/QWidget>

#include "platform/geometry.h"
#include "platform/parts/sharp_scale.h"
#include "platform/picture.h"
#include "platform/view.h"

namespace platform::desktop {

class HostWindow;
class ViewWidget;

/// The drawing area of a graphic window and the picture that it shows. Main thread.
class DrawingArea : public View, private Canvas {
  public:
    DrawingArea(platform::desktop::HostWindow& window, ViewClient& client, const Rect& frame);

    void SetNeedsDisplay() override;
    void Display() override;
    [[nodiscard]] Window* HostWindow() override;
    [[nodiscard]] Rect Frame() const override;
    void SetFrameSize(double width, double height) override;
    void SetFrameOrigin(double x, double y) override;

    /// Makes the widget inside the window's content.
    void MakeWidget(QWidget& content);

    /// Gives the widget the place that the view has now.
    void LayOut();
    /// The place of the view where the window's content is shown in a widget of this size: as large
    /// as its proportions allow, in the middle.
    [[nodiscard]] QRect PlaceIn(const QSize& widget) const;

    /// One paint event of the widget: a display pass when one is still due, and the picture.
    void Paint(QWidget& widget);

  private:
    Picture& Buffer() override;
    void Show(const Rows& changed) override;

    void MakePass();
    QRect AskClient();
    [[nodiscard]] QRect PlaceOf(const Rows& rows) const;
    [[nodiscard]] bool IsExposed() const;
    void DrawPicture(QWidget& widget);
    void DrawSharp(QWidget& widget, const QSize& devicePixels);
    [[nodiscard]] bool HasPicture() const;

    platform::desktop::HostWindow& window_;
    ViewClient& client_;
    Rect frame_;
    ViewWidget* widget_ = nullptr;  // made with the window's widget

    Picture picture_;
    bool shown_ = false;        // picture_ is to be seen
    bool needsDisplay_ = true;  // the client is asked at the next pass
    bool passPosted_ = false;   // MakePass will be called
    bool asking_ = false;       // the client is being asked
    QRect changed_;             // by the client's answer, in the widget
    parts::SharpScaler scaler_;
    QImage scaled_;  // picture_ in device pixels, for factors that are not whole
    bool scaledIsOld_ = true;
};

}  // namespace platform::desktop
