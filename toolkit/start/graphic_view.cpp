#include "toolkit/start/graphic_view.h"

#include "toolkit/core/threads.h"
#include "toolkit/graphics/frame.h"
#include "toolkit/input/keyboard.h"
#include "toolkit/input/mouse.h"
#include "toolkit/program/pointer.h"
#include "toolkit/window/window.h"

namespace toolkit {

bool GraphicView::wantsUpdateLayer() {
    const t_Window& w = t_Windows[window_];
    return IsUsable(w, Need::SetUp) && w.QuickUpdate;
}

void GraphicView::ShowFrame(platform::Canvas& canvas) {
    if (!t_ToolsReady) return;
    const std::optional<platform::Rows> changed = t_WindowImage(window_, canvas.Buffer());
    if (changed) canvas.Show(*changed);
}

void GraphicView::keyDown(const platform::KeyPress& press) {
    viewKeyDown(window_, press);
}

void GraphicView::keyUp() {
    t_KeyDown = false;
}

void GraphicView::flagsChanged(std::uint64_t modifierFlags) {
    SetModifierFlags(modifierFlags);
}

void GraphicView::mouseDown(const platform::MousePress& press) {
    viewMouseDown(window_, press, false);
}

void GraphicView::rightMouseDown(const platform::MousePress& press) {
    viewMouseDown(window_, press, true);
}

void GraphicView::mouseUp() {
    t_MouseDown = false;
    t_RightMouseDown = false;
}

void GraphicView::rightMouseUp() {
    mouseUp();
}

void GraphicView::pointerDidChange(const platform::MousePress& pointer) {
    NotePointer(window_, pointer);
}

void GraphicView::pointerDidLeave() {
    NotePointerLeft(window_);
}

}  // namespace toolkit

void View00::ShowFrame(platform::Canvas& canvas) {
    if (!t_ToolsReady) return;
    t_Windows[0].VerticalBlank = false;
    GraphicView::ShowFrame(canvas);
    t_Windows[0].VerticalBlank = true;
}
