#pragma once

#include "platform/desktop/drawing_area.h"
#include "platform/desktop/host_window.h"

namespace platform::desktop {

/// A window around one drawing area, sized by zoom. Main thread.
class GraphicWindow : public HostWindow {
  public:
    GraphicWindow(Desk& desk, ViewClient& client);

    [[nodiscard]] DrawingArea& Area() { return area_; }

  private:
    void Fill(QWidget& content) override;
    void ContentDidResize(QSize before) override;
    [[nodiscard]] QSize SmallestContent() const override;

    DrawingArea area_;
};

}  // namespace platform::desktop
