#pragma once

#include <QtCore/QMargins>
#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtCore/QSize>
#include <functional>

class QScreen;

// Where and how large windows are shown on the screens that there are. Rectangles are in the
// desktop's coordinates. A frame is title bar, menu bar and content; what a window manager draws
// beside and below it lies outside. Main thread.

namespace platform::desktop {

/// What a frame may take of the screen that shows most of it, of `otherwise` when none shows any.
/// `borders` are drawn around the frame; their upper one is part of it.
[[nodiscard]] QRect RoomFor(const QRect& frame, const QMargins& borders, const QScreen* otherwise);

/// A content of this size, `zoom` times as large; at least one point each way.
[[nodiscard]] QSize Zoomed(const QSize& content, double zoom);

/// The largest zoom at which the content fits into the room below `above` points.
[[nodiscard]] double LargestZoomIn(const QRect& room, const QSize& content, int above);

/// Whether a screen shows enough of the frame's uppermost `grip` points to pull the window there.
[[nodiscard]] bool CanBePulled(const QRect& frame, int grip);

/// The frame, moved as little as makes it one that can be pulled inside the room.
[[nodiscard]] QRect BroughtBack(const QRect& frame, const QRect& room, int grip);

/// The frame, moved into the room as little as needed; of one that is too large the upper left
/// corner stands in it.
[[nodiscard]] QRect MovedInto(const QRect& room, const QRect& frame);

/// A frame of this size about the centre of what the room shows of `frame`, moved into the room.
[[nodiscard]] QRect AboutCentreOf(const QRect& frame, const QSize& size, const QRect& room);

/// How far the centre goes from one rectangle to the other; between two of the same size exactly
/// as far as the corners.
[[nodiscard]] QPoint Way(const QRect& from, const QRect& to);

/// The zoom of a content that was shown at `from` until a person pulled it to `to`: that of the
/// side which was pulled further.
[[nodiscard]] double PulledZoom(const QSize& content, const QRect& from, const QRect& to);

/// A rectangle of this size that keeps the sides of `to` that were not pulled.
[[nodiscard]] QRect KeepingSides(const QRect& from, const QRect& to, const QSize& size);

/// Has `changed` called from now on when screens come, go or change.
void WatchScreens(const std::function<void()>& changed);

}  // namespace platform::desktop
