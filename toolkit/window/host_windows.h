#pragma once

#include <cstdint>

#include "platform/window.h"

// Which platform object belongs to which window number, and back. All may be called on any thread:
// off the main thread they wait until the main thread has read the delegate's outlets.

/// The view of graphic window 0 to 7; nullptr for other numbers and for a view that does not exist.
[[nodiscard]] platform::View* t_WindowView(std::uint8_t window);

/// The platform window: the one that holds the view for 0 to 7, 8 pasteboard, 9 virtual printer, 10
/// system console, 11 preferences, 12 main window. nullptr when there is none.
[[nodiscard]] platform::Window* t_WindowHostWindow(std::uint8_t window);

/// The text view of window 8, 9 or 10; nullptr for other numbers and where there is none.
[[nodiscard]] platform::TextView* t_WindowTextView(std::uint8_t window);

/// The number of the window that the person works in; 255 when it has none or there is none.
[[nodiscard]] std::uint8_t t_FrontWindow();

namespace toolkit {

/// The number of a platform window; 255 for nullptr and for a window without a number.
[[nodiscard]] std::uint8_t WindowNumber(const platform::Window* window);

/// Whether the window of this number is shown; false where there is none. Main thread.
[[nodiscard]] bool IsVisible(std::uint8_t window);

}  // namespace toolkit
