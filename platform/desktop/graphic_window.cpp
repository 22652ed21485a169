#include "platform/desktop/graphic_window.h"

namespace platform::desktop {

namespace {

// Until the toolkit sets a size.
constexpr int kWidth = 640;
constexpr int kHeight = 400;

}  // namespace

GraphicWindow::GraphicWindow(ViewClient& client)
    : HostWindow({}, {kWidth, kHeight}, Sizing::Fixed, Keys::Program),
      view_(*this, client, {0, 0, kWidth, kHeight}) {
    SetBackgroundColor({255, 0, 0, 0});
    client.awakeFromNib();
}

void GraphicWindow::Fill(QWidget& content) {
    view_.MakeWidget(content);
}

}  // namespace platform::desktop
