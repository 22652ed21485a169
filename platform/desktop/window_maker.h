#pragma once

#include "platform/window.h"

namespace platform::desktop {

/// Makes the windows. Main thread.
class DesktopWindowMaker : public WindowMaker {
  public:
    GraphicWindowParts MakeGraphicWindow(ViewClient& client) override;
    TextWindowParts MakeTextWindow(std::string_view title, double width, double height,
                                   bool ruler) override;
    Window* MakeFormWindow(std::string_view title, std::vector<FormRow> rows) override;
};

}  // namespace platform::desktop
