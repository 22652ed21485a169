#pragma once

#include <cstdint>
#include <string_view>

// A window's title, and how wide a text is.

namespace korvandi {

/// Writes `title` (UTF-8) into the title bar of graphic window `window` (0 to 7). Any thread; waits
/// for the main thread.
///   "SetTitle: Window is not a graphic window."
///   "SetTitle: Window #<window> not initialized."
void SetTitle(std::uint8_t window, std::string_view title);

/// How many pixels wide `text` (UTF-8) is when graphic window `window` prints it in one line:
/// control codes take no room. Any thread. 0 after a fault:
///   "TextWidth: Window is not a graphic window."
///   "TextWidth: Window #<window> not initialized."     also without a font
[[nodiscard]] std::int64_t TextWidth(std::uint8_t window, std::string_view text);

}  // namespace korvandi
