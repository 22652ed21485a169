#pragma once

#include <cstdint>

#include "platform/geometry.h"
#include "platform/input.h"
#include "platform/picture.h"

// A drawing area on the screen and what it asks of whoever draws it. Main thread throughout.

namespace platform {

class Window;

/// One display pass of a view: a picture that the view keeps from pass to pass, so that its bytes
/// are got once, and the step that puts it on the screen.
class Canvas {
  public:
    virtual ~Canvas() = default;

    /// The picture to fill; it holds what was filled in last. Its `Order` is the one that the
    /// screen wants; whoever fills it keeps that order, sets the size and fits the bytes to it.
    virtual Picture& Buffer() = 0;

    /// Shows the buffer, scaled to fill the view. `changed` are the rows that differ from what it
    /// held before, all of them after a change of its size. The view goes on showing it, also when
    /// it is uncovered later, until another picture is shown.
    virtual void Show(const Rows& changed) = 0;
};

/// What a view asks of the toolkit.
class ViewClient {
  public:
    virtual ~ViewClient() = default;

    /// Called once, before anything else.
    virtual void awakeFromNib() = 0;

    /// Whether a display pass calls updateLayer (true) or drawRect (false).
    virtual bool wantsUpdateLayer() = 0;
    /// A display pass. A client that does not call Canvas::Show leaves what the view shows.
    virtual void updateLayer(Canvas& canvas) = 0;
    virtual void drawRect(const Rect& dirty, Canvas& canvas) = 0;

    /// Whether the view takes key presses.
    virtual bool acceptsFirstResponder() = 0;
    virtual void keyDown(const KeyPress& press) = 0;
    virtual void keyUp() = 0;
    /// The held modifiers changed; `modifierFlags` as KeyPress::ModifierFlags.
    virtual void flagsChanged(std::uint64_t modifierFlags) = 0;
    virtual void mouseDown(const MousePress& press) = 0;
    virtual void rightMouseDown(const MousePress& press) = 0;
    virtual void mouseUp() = 0;
    virtual void rightMouseUp() = 0;
    /// The pointer moved over the view, or the held buttons changed; while one is held that was
    /// pressed in the view, also outside of it. Comes after mouseDown and mouseUp. `Buttons` are
    /// those that are held now.
    virtual void pointerDidChange(const MousePress& /*pointer*/) {}
    /// The pointer left the view.
    virtual void pointerDidLeave() {}
};

/// One drawing area, child of a window.
class View {
  public:
    virtual ~View() = default;

    /// Marks the view: the next display pass asks its client for a picture. Returns at once. A view
    /// begins marked; while it cannot be seen, it keeps the mark until it is shown.
    virtual void SetNeedsDisplay() = 0;

    /// Makes a display pass of this view now; returns when the picture was handed to the screen.
    /// Only marks a view that cannot be seen, or whose client is just being asked.
    virtual void Display() = 0;

    /// The window that holds the view; nullptr when none does.
    [[nodiscard]] virtual Window* HostWindow() = 0;

    /// Place and size inside the window's content, origin at its lower left.
    [[nodiscard]] virtual Rect Frame() const = 0;
    virtual void SetFrameSize(double width, double height) = 0;
    virtual void SetFrameOrigin(double x, double y) = 0;
};

}  // namespace platform
