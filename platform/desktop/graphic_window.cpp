#include "platform/desktop/graphic_window.h"

#include "platform/desktop/placing.h"

namespace platform::desktop {

namespace {

// Until the toolkit sets a size.
constexpr int kWidth = 640;
constexpr int kHeight = 400;

constexpr double kSmallestZoom = 0.25;  // that a person can pull the window to

}  // namespace

GraphicWindow::GraphicWindow(Desk& desk, ViewClient& client)
    : HostWindow(desk, {}, {kWidth, kHeight}, Sizing::ByZoom, Keys::Program),
      area_(*this, client, {0, 0, kWidth, kHeight}) {
    SetBackgroundColor({255, 0, 0, 0});
    client.awakeFromNib();
}

void GraphicWindow::Fill(QWidget& content) {
    area_.MakeWidget(content);
}

void GraphicWindow::ContentDidResize(QSize /*before*/) {
    area_.LayOut();
}

QSize GraphicWindow::SmallestContent() const {
    return Zoomed(ContentSize(), kSmallestZoom);
}

}  // namespace platform::desktop
