#include <algorithm>
#include <utility>

#include "platform/headless/headless.h"

namespace platform::headless {

std::string HeadlessTextView::Text() const {
    ExpectMain(__func__);
    return std::string(Content.Text());
}

void HeadlessTextView::SetText(std::string text) {
    ExpectMain(__func__);
    Content.Set(std::move(text));
}

void HeadlessTextView::AppendText(std::string_view text) {
    ExpectMain(__func__);
    Content.Append(text);
}

void HeadlessTextView::SetLineLimit(std::int64_t lines) {
    ExpectMain(__func__);
    Content.SetLimit(lines);
}

void HeadlessTextView::SetAutomaticSubstitutions(bool on) {
    ExpectMain(__func__);
    AutomaticSubstitutions = on;
}

void HeadlessTextView::SetFont(std::string_view family, double points) {
    ExpectMain(__func__);
    FontFamily = family;
    FontPoints = points;
}

void HeadlessTextView::SetNeedsDisplay() {
    ExpectMain(__func__);
    ++DisplayRequests;
}

HeadlessWindow::HeadlessWindow(Headless& desktop, double contentWidth, double contentHeight)
    : desktop_(desktop), frame_{0, 0, contentWidth, contentHeight + desktop.AboveContent} {}

Rect HeadlessWindow::Frame() const {
    ExpectMain(__func__);
    return frame_;
}

Rect HeadlessWindow::ScreenFrame() const {
    ExpectMain(__func__);
    return desktop_.Screen;
}

void HeadlessWindow::SetFrame(const Rect& frame) {
    ExpectMain(__func__);
    everPlaced_ = everPlaced_ || frame.X != frame_.X || frame.Y != frame_.Y;
    Change(frame, StyleMask);
}

void HeadlessWindow::Center() {
    ExpectMain(__func__);
    const Rect& screen = desktop_.Screen;
    const double beside = screen.Width - frame_.Width;
    const double above = screen.Height - frame_.Height;
    frame_.X = screen.X + std::max(beside / 2, 0.0);
    frame_.Y = screen.Y + std::min(above / 2, above);
    everPlaced_ = true;
}

bool HeadlessWindow::IsVisible() const {
    ExpectMain(__func__);
    return visible_;
}

void HeadlessWindow::OrderFront() {
    ExpectMain(__func__);
    Show(false);
}

void HeadlessWindow::MakeKeyAndOrderFront() {
    ExpectMain(__func__);
    Show(true);
}

void HeadlessWindow::Show(bool key) {
    if (!everPlaced_) Center();
    visible_ = true;
    desktop_.BringToFront(*this, key);
}

void HeadlessWindow::OrderOut() {
    ExpectMain(__func__);
    if (std::exchange(visible_, false)) desktop_.WindowHidden(*this);
}

void HeadlessWindow::SetTitle(std::string_view title) {
    ExpectMain(__func__);
    Title = title;
}

void HeadlessWindow::SetStyleMask(std::int64_t mask) {
    ExpectMain(__func__);
    Change(frame_, mask);
}

void HeadlessWindow::SetBackgroundColor(Color color) {
    ExpectMain(__func__);
    Background = color;
}

double HeadlessWindow::Zoom() const {
    ExpectMain(__func__);
    return Zooms ? std::min(zoom_, LargestZoom()) : 1;
}

double HeadlessWindow::LargestZoom() const {
    ExpectMain(__func__);
    if (!Zooms) return 1;
    return std::min(desktop_.Screen.Width / frame_.Width,
                    (desktop_.Screen.Height - Above()) / (frame_.Height - Above()));
}

void HeadlessWindow::SetZoom(double zoom) {
    ExpectMain(__func__);
    if (Zooms && zoom > 0) zoom_ = std::min(zoom, kLargestZoom);
}

void HeadlessWindow::ClickCloseBox() {
    ExpectMain(__func__);
    ApplicationClient* const client = desktop_.Listener();
    if (client == nullptr || !client->windowShouldClose(*this)) return;
    client->windowWillClose(*this);
    OrderOut();
}

double HeadlessWindow::Above() const {
    return StyleMask == kBorderless ? 0 : desktop_.AboveContent;
}

// Gives the window another frame or title bar; the content is what is left.
void HeadlessWindow::Change(const Rect& frame, std::int64_t mask) {
    const double aboveBefore = Above();
    const Rect before = std::exchange(frame_, frame);
    StyleMask = mask;
    const double wider = frame.Width - before.Width;
    const double higher = frame.Height - Above() - (before.Height - aboveBefore);
    if (wider == 0 && higher == 0) return;
    Follow(wider, higher);
    desktop_.WindowResized(*this);
}

void HeadlessWindow::Follow(double wider, double higher) {
    if (Scroll != nullptr) {
        const Rect text = Scroll->Frame();
        Scroll->SetFrame({text.X, text.Y, text.Width + wider, text.Height + higher});
    }
    if (Columns != nullptr) {
        const Rect ruler = Columns->Frame();
        Columns->SetFrame({ruler.X, ruler.Y + higher, ruler.Width + wider, ruler.Height});
    }
}

HeadlessView::HeadlessView(HeadlessWindow& window, ViewClient& client)
    : Client(client), window_(window), frame_{0, 0, 640, 480} {
    client.awakeFromNib();
}

void HeadlessView::SetNeedsDisplay() {
    ExpectMain(__func__);
    NeedsDisplay = true;
}

void HeadlessView::Display() {
    ExpectMain(__func__);
    NeedsDisplay = true;
    if (!window_.IsVisible() || asking_) return;
    NeedsDisplay = false;
    asking_ = true;
    ++DisplayPasses;
    buffer_.Order = Order;
    if (Client.wantsUpdateLayer()) {
        Client.updateLayer(*this);
    } else {
        Client.drawRect({0, 0, frame_.Width, frame_.Height}, *this);
    }
    asking_ = false;
}

platform::Window* HeadlessView::HostWindow() {
    ExpectMain(__func__);
    return Attached ? &window_ : nullptr;
}

Rect HeadlessView::Frame() const {
    ExpectMain(__func__);
    return frame_;
}

void HeadlessView::SetFrameSize(double width, double height) {
    ExpectMain(__func__);
    frame_.Width = width;
    frame_.Height = height;
}

void HeadlessView::SetFrameOrigin(double x, double y) {
    ExpectMain(__func__);
    frame_.X = x;
    frame_.Y = y;
}

void HeadlessView::Press(const KeyPress& press) {
    ExpectMain(__func__);
    if (!Client.acceptsFirstResponder()) return;
    Client.keyDown(press);
    Client.keyUp();
}

void HeadlessView::MouseDown(const MousePress& press, bool rightButton) {
    ExpectMain(__func__);
    rightButton ? Client.rightMouseDown(press) : Client.mouseDown(press);
    MovePointer(press);
}

void HeadlessView::MouseUp(bool rightButton) {
    ExpectMain(__func__);
    rightButton ? Client.rightMouseUp() : Client.mouseUp();
    pointer_.Buttons = 0;
    MovePointer(pointer_);
}

void HeadlessView::MovePointer(const MousePress& pointer) {
    ExpectMain(__func__);
    pointer_ = pointer;
    Client.pointerDidChange(pointer);
}

void HeadlessView::LeavePointer() {
    ExpectMain(__func__);
    Client.pointerDidLeave();
}

}  // namespace platform::headless
