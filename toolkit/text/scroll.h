#pragma once

#include <cstdint>

// Scrolling the text area. Program thread; no lock. Every operation prints, without further effect,
//   "<operation>: Window is not a graphic window."    window is 8 or more
//   "<operation>: Window #<window> not initialized."  toolkit not ready, window not set up or
//                                                     without a text block

/// Moves the text area up by one line; its last line becomes blank in the current colours. Nothing
/// while ScrollLock is set.
void t_ScrollUp(std::uint8_t window);
/// Moves the text area down by one line; its first line becomes blank.
void t_ScrollDown(std::uint8_t window);
