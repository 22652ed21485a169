#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

// The clipboard of the X display, asked through a connection of our own. Main thread.

namespace platform::desktop {

/// What the program that owns the clipboard of the X display says when it is asked for its text.
struct ClipboardAnswer {
    bool Given = false;               // in time
    std::optional<std::string> Text;  // the bytes, UTF-8 as that program says; none: it has others
    bool Cut = false;                 // there is more text than this
};

/// Asks for the clipboard's text. Waits no longer than `patience` for each part of the answer, and
/// takes no more than `most` bytes; of a text that takes long to come only what is there after
/// a twentieth of a second, but no less than a megabyte. Without an owner the display server says
/// that there is no text.
[[nodiscard]] ClipboardAnswer AskClipboardText(std::size_t most,
                                               std::chrono::milliseconds patience);

}  // namespace platform::desktop
