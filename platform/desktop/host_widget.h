#pragma once

#include <QtWidgets/QWidget>

#include "platform/desktop/menu_strip.h"

namespace platform::desktop {

class Menus;

/// What a top-level widget tells the window that it belongs to.
class HostWidgetOwner {
  public:
    virtual void CloseRequested() = 0;
    virtual void GeometryChanged() = 0;
    virtual void Activated() = 0;

  protected:
    ~HostWidgetOwner() = default;
};

/// The top-level widget of a window: menu bar above, content below.
class HostWidget : public QWidget {
  public:
    HostWidget(HostWidgetOwner& owner, Menus& menus, Keys keys);

    [[nodiscard]] QWidget& Content() { return *content_; }

    /// Shows the menu bar with this height; 0 hides it.
    void SetMenuBarHeight(int height);
    [[nodiscard]] int MenuBarHeight() const { return menuBarHeight_; }

    /// Gives menu bar and content their places inside the widget.
    void LayOut();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    HostWidgetOwner& owner_;
    MenuStrip* menuBar_;
    QWidget* content_;
    int menuBarHeight_ = 0;
};

}  // namespace platform::desktop
