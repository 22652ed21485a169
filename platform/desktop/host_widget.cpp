#include "platform/desktop/host_widget.h"

#include <QtGui/QCloseEvent>

#include "platform/desktop/menus.h"

namespace platform::desktop {

HostWidget::HostWidget(HostWidgetOwner& owner, Menus& menus, Keys keys)
    : owner_(owner), menuBar_(menus.MakeBar(*this, keys)), content_(new QWidget(this)) {
    content_->setAutoFillBackground(true);
}

void HostWidget::SetMenuBarHeight(int height) {
    menuBarHeight_ = height;
    menuBar_->setVisible(height > 0);
    LayOut();
}

void HostWidget::LayOut() {
    menuBar_->setGeometry(0, 0, width(), menuBarHeight_);
    content_->setGeometry(0, menuBarHeight_, width(), height() - menuBarHeight_);
}

// A window is hidden, never closed, and only when the client says so.
void HostWidget::closeEvent(QCloseEvent* event) {
    event->ignore();
    owner_.CloseRequested();
}

void HostWidget::moveEvent(QMoveEvent* /*event*/) {
    owner_.GeometryChanged();
}

void HostWidget::resizeEvent(QResizeEvent* /*event*/) {
    LayOut();
    owner_.GeometryChanged();
}

void HostWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) owner_.Activated();
}

}  // namespace platform::desktop
