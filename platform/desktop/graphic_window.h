#pragma once

#include "platform/desktop/graphic_view.h"
#include "platform/desktop/host_window.h"

namespace platform::desktop {

/// A window around one drawing area, sized by zoom. Main thread.
class GraphicWindow : public HostWindow {
  public:
    explicit GraphicWindow(ViewClient& client);

    [[nodiscard]] GraphicView& Area() { return view_; }

  private:
    void Fill(QWidget& content) override;
    void ContentDidResize(QSize before) override;
    [[nodiscard]] QSize SmallestContent() const override;

    GraphicView view_;
};

}  // namespace platform::desktop
