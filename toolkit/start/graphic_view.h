#pragma once

#include <cstdint>

#include "platform/view.h"

namespace toolkit {

/// The drawing and input side of a graphic window's view: shows frames, and passes keys and clicks
/// on with its window number. Main thread.
class GraphicView : public platform::ViewClient {
  public:
    explicit GraphicView(std::uint8_t window) : window_(window) {}

    void awakeFromNib() override {}  // the seam's views change pictures at once by themselves
    /// True while the toolkit is ready and the window is set up for quick updates.
    bool wantsUpdateLayer() override;
    void updateLayer(platform::Canvas& canvas) override { ShowFrame(canvas); }
    void drawRect(const platform::Rect& /*dirty*/, platform::Canvas& canvas) override {
        ShowFrame(canvas);
    }

    bool acceptsFirstResponder() override { return true; }
    void keyDown(const platform::KeyPress& press) override;
    void keyUp() override;
    void flagsChanged(std::uint64_t modifierFlags) override;
    void mouseDown(const platform::MousePress& press) override;
    void rightMouseDown(const platform::MousePress& press) override;
    void mouseUp() override;
    void rightMouseUp() override;
    void pointerDidChange(const platform::MousePress& pointer) override;
    void pointerDidLeave() override;

  protected:
    /// Builds the window's frame and shows it; without a frame the view keeps what it shows.
    virtual void ShowFrame(platform::Canvas& canvas);

  private:
    std::uint8_t window_;
};

}  // namespace toolkit

/// The view of window 0. It alone tells through VerticalBlank while a frame is built and shown.
class View00 final : public toolkit::GraphicView {
  public:
    View00() : GraphicView(0) {}

  protected:
    void ShowFrame(platform::Canvas& canvas) override;
};

class View01 final : public toolkit::GraphicView {
  public:
    View01() : GraphicView(1) {}
};

class View02 final : public toolkit::GraphicView {
  public:
    View02() : GraphicView(2) {}
};

class View03 final : public toolkit::GraphicView {
  public:
    View03() : GraphicView(3) {}
};

class View04 final : public toolkit::GraphicView {
  public:
    View04() : GraphicView(4) {}
};

class View05 final : public toolkit::GraphicView {
  public:
    View05() : GraphicView(5) {}
};

class View06 final : public toolkit::GraphicView {
  public:
    View06() : GraphicView(6) {}
};

class View07 final : public toolkit::GraphicView {
  public:
    View07() : GraphicView(7) {}
};
