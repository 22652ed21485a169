#pragma once

#include <string_view>
#include <vector>

#include "platform/view.h"
#include "platform/window.h"

namespace platform::desktop {

struct Desk;

/// Makes the windows. Main thread.
class DesktopWindowMaker : public WindowMaker {
  public:
    explicit DesktopWindowMaker(Desk& desk) : desk_(desk) {}
    GraphicWindowParts MakeGraphicWindow(ViewClient& client) override;
    TextWindowParts MakeTextWindow(std::string_view title, double width, double height,
                                   const TextLayout& layout) override;
    Window* MakeFormWindow(std::string_view title, std::vector<FormRow> rows) override;

  private:
    Desk& desk_;
};

}  // namespace platform::desktop
