#pragma once

#include <QtCore/QTimer>
#include <QtWidgets/QWidget>
#include <cstddef>

#include "platform/view.h"

class QMouseEvent;

namespace platform::desktop {

class DrawingArea;

/// The widget of a drawing area: paints it and hands keys and clicks to its client, clicks on the
/// border around the area included. Main thread.
class ViewWidget : public QWidget {
  public:
    ViewWidget(DrawingArea& area, ViewClient& client, QWidget& content);

    /// Takes the place inside the content that the view has now.
    void LayOut();

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    void ReleaseKey();
    void ShowAnswer();
    void AskForAnswer();
    [[nodiscard]] MousePress PressAt(const QMouseEvent& event, const QPointF& place) const;
    void Press(const QMouseEvent& event, const QPointF& place);
    void Release(const QMouseEvent& event, const QPointF& place);
    void Move(const QMouseEvent& event, const QPointF& place);
    void HandleOnBorder(const QMouseEvent& event);

    DrawingArea& area_;
    ViewClient& client_;
    QWidget& content_;
    bool keyHeld_ = false;  // the client was told of a press and of no release since

    // A release that may be the first half of a repetition: the display server sends both halves
    // with the same time.
    quint32 releasedKey_ = 0;
    quint64 releaseTime_ = 0;
    QTimer release_;

    // Display passes that show what the program makes of a key or a click.
    std::size_t answers_ = 0;  // made since the last one
    QTimer answer_;
};

}  // namespace platform::desktop
