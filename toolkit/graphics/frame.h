#pragma once

#include <cstdint>
#include <optional>

#include "platform/picture.h"

// Frames: one window's graphic block turned into a picture of 4-byte pixels. Main thread, while the
// program thread goes on drawing: a frame shows whatever the memory holds while it is read.
// start/init_window.h shows where the pixels lie in the block.

/// Builds the frame of graphic window `window` (0 to 7) into `picture`, in the byte order that
/// `picture` asks for; its bytes are got anew only when the size changes. Sets the window's
/// UpdateDuration and UpdateFinished. The result are the rows that `picture` held otherwise before,
/// all of them after a change of its size. No value, with `picture` as it was, when the toolkit is
/// not ready, the window is hidden, the number is 8 or more, the record names no block inside the
/// memory, and after
///   "t_WindowImage: Graphic window #<window> not initialized."
///   "t_WindowImage: Illegal bit depth."    once for every pixel
///   "t_WindowImage: Data could not be collected, image could not be created."   no memory left
std::optional<platform::Rows> t_WindowImage(std::uint8_t window, platform::Picture& picture);

/// The same as a picture of its own, in the order alpha, red, green, blue.
[[nodiscard]] std::optional<platform::Picture> t_WindowImage(std::uint8_t window);

/// The frame of a window that has a view; no value for other windows and where there is no frame.
[[nodiscard]] std::optional<platform::Picture> t_WindowSnapshot(std::uint8_t window);
