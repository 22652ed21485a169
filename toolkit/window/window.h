#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "toolkit/core/color.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/shared.h"
#include "toolkit/core/window_numbers.h"
#include "toolkit/font/font.h"
#include "toolkit/window/shared_rect.h"

namespace platform {
class View;
class Window;
}  // namespace platform

// The table of the eight graphic windows. Fields that more than one thread uses are Shared; the
// others belong to the program thread. A field may be set freely: every operation checks what it
// reads against the memory before it uses it.

namespace toolkit {

inline constexpr std::int64_t kLargestSide = 8192;     // of a picture, and so of a glyph, pixels
inline constexpr std::int64_t kUsualRefreshRate = 30;  // of a new window, frames per second

/// Where a window's text output goes; with any other number nowhere, too.
struct TextOutput {
    enum : std::int64_t {
        ToNowhere = 0,
        ToWindow = 1,
        ToStandardOutput = 2,
    };
};

}  // namespace toolkit

/// The record of one graphic window. Columns and lines count from 1, pixels from 0.
struct t_Window {
    toolkit::Shared<bool> Initialized = false;         // set up and bound to a view
    toolkit::Shared<bool> Visible = false;             // the picture is shown
    toolkit::Shared<bool> IgnoreEvents = false;        // keys and clicks are dropped
    toolkit::Shared<bool> AutoUpdate = false;          // refreshed by the refresh loop
    toolkit::Shared<bool> QuickUpdate = false;         // the view shows frames through its layer
    toolkit::Shared<bool> ScrollLock = false;          // text output does not scroll
    toolkit::Shared<bool> VerticalBlank = true;        // no frame is being built or shown
    toolkit::Shared<std::int64_t> UpdateStarted = 0;   // last refresh request, milliseconds
    toolkit::Shared<std::int64_t> UpdateFinished = 0;  // last frame finished, milliseconds
    toolkit::Shared<std::int64_t> UpdateDuration = 0;  // of the last frame, microseconds
    toolkit::Shared<std::int64_t> RefreshRate = toolkit::kUsualRefreshRate;  // frames per second

    toolkit::Shared<platform::Window*> Window = nullptr;
    toolkit::Shared<platform::View*> View = nullptr;
    toolkit::SharedRect DrawingRect;                 // of the picture in its view, points
    toolkit::Shared<std::int64_t> TitleHeight = 0;   // 0 while the title bar is hidden
    toolkit::Shared<std::int64_t> BorderWidth = 0;   // beside the picture, pixels
    toolkit::Shared<std::int64_t> BorderHeight = 0;  // above and below the picture, pixels
    toolkit::SharedColor RGBColorBorder;

    toolkit::Shared<std::int64_t> BitDepth = 0;  // 1, 4, 8, 16, 24 or 32
    toolkit::Shared<std::int64_t> Width = 0;     // of the picture, pixels
    toolkit::Shared<std::int64_t> Height = 0;
    toolkit::SharedColor RGBColor;  // current colour
    toolkit::Shared<std::int64_t> DrawingMode = 0;
    toolkit::Shared<std::int64_t> PositionX = 0;
    toolkit::Shared<std::int64_t> PositionY = 0;
    toolkit::Shared<std::int64_t> MemoryStart = -1;  // graphic block, first and last address
    toolkit::Shared<std::int64_t> MemoryEnd = -1;

    t_Font Font;
    toolkit::Shared<std::int64_t> TextWidth = 0;  // grid in columns and lines, -1 without a font
    toolkit::Shared<std::int64_t> TextHeight = 0;
    toolkit::Shared<std::int64_t> TextFirstColumn = 0;  // text area inside the grid
    toolkit::Shared<std::int64_t> TextLastColumn = 0;
    toolkit::Shared<std::int64_t> TextFirstLine = 0;
    toolkit::Shared<std::int64_t> TextLastLine = 0;
    toolkit::Shared<std::int64_t> TextHpos = 0;  // cursor column
    toolkit::Shared<std::int64_t> TextVpos = 0;  // cursor line
    // The foreground in the high four bits, the background in the low four.
    toolkit::Shared<std::uint8_t> TextColor = 0;
    toolkit::Shared<bool> TextInverse = false;  // the two trade places when drawing
    toolkit::Shared<std::int64_t> TextDisplayMode = 0;
    toolkit::Shared<std::int64_t> TextCursorLevel = 0;  // the cursor shows from 1 on
    toolkit::Shared<std::int64_t> TextRedirectOutput = toolkit::TextOutput::ToWindow;

    std::string InputString;  // line editor: the field's text
    toolkit::Shared<bool> InputFinished = false;
    toolkit::Shared<std::int64_t> InputMode = 0;
    toolkit::Shared<std::int64_t> InputHpos = 0;
    toolkit::Shared<std::int64_t> InputVpos = 0;
    toolkit::Shared<std::int64_t> InputCursorPos = 0;  // characters left of the cursor
    toolkit::Shared<std::int64_t> InputMaxCharacters = 0;

    toolkit::Shared<std::int64_t> LoResOffsetX = 0;  // blocks
    toolkit::Shared<std::int64_t> LoResOffsetY = 0;
    toolkit::Shared<std::int64_t> LoResMode = 0;  // 0 to 3

    // The text block: half of it one character byte per cell, line by line, then the colour bytes
    // in the same order. -1 without a text block.
    toolkit::Shared<std::int64_t> TextMemoryStart = -1;
    toolkit::Shared<std::int64_t> TextMemoryEnd = -1;

    bool operator==(const t_Window&) const = default;
};

using t_WindowTable = std::array<t_Window, toolkit::kGraphicWindows>;

/// Indexed by window number 0 to 7. Never destroyed.
extern t_WindowTable& t_Windows;

/// The highest address of t_Memory not yet handed out.
extern constinit toolkit::Shared<std::int64_t> t_HighMemory;

/// The number of the first window that was opened, 255 before.
extern constinit toolkit::Shared<std::uint8_t> t_FirstWindow;

/// Makes `font` the font of graphic window `window` (0 to 7). The window's size, text grid, cursor
/// and memory stay as they are. Program thread.
/// Faults: "t_WindowFont: Window is not a graphic window."
///         "t_WindowFont: Window #<window> not initialized."
void t_WindowFont(std::uint8_t window, const t_Font& font);

namespace toolkit {

enum class Need : std::uint8_t { SetUp, TextBlock };

/// The graphic window that an operation may work on, or nullptr after one fault line:
///   "<operation>: Window is not a graphic window."    window is 8 or more
///   "<operation>: Window #<window> not initialized."  toolkit not ready, window not set up, or
///                                                     without the text block that `need` names
/// Pass __func__ as `operation`: in a t_ function it is the name that the line must carry.
/// Any thread; changes nothing.
[[nodiscard]] t_Window* UsableWindow(std::string_view operation, std::uint8_t window, Need need);

/// The record of a graphic window in whatever state it is; nullptr after the first of the lines
/// above.
[[nodiscard]] t_Window* GraphicWindow(std::string_view operation, std::uint8_t window);

/// Whether the window is set up as `need` says, the toolkit included.
[[nodiscard]] bool IsUsable(const t_Window& w, Need need);

/// Prints "<operation>: Window #<window> not initialized."
void PrintNotInitialized(std::string_view operation, std::uint8_t window);

/// How many bytes lie from one address to another, both included.
[[nodiscard]] constexpr std::int64_t LengthOf(std::int64_t start, std::int64_t end) {
    return Plus(Minus(end, start), 1);
}

/// Half the length of the window's text block: how far a cell's colour byte lies behind its
/// character byte. 0 without a text block.
[[nodiscard]] inline std::int64_t ColorOffset(const t_Window& w) {
    const std::int64_t start = w.TextMemoryStart;
    return start < 0 ? 0 : LengthOf(start, w.TextMemoryEnd) / 2;
}

/// The index of cell (column, line) in each half of the text block; -1 for a cell outside the text
/// grid or outside the block.
[[nodiscard]] std::int64_t CellIndex(const t_Window& w, std::int64_t column, std::int64_t line);

/// A cell's character and colour byte as the text block holds them; 0 for a cell outside.
struct Cell {
    std::uint8_t Symbol = 0;
    std::uint8_t Color = 0;

    bool operator==(const Cell&) const = default;
};
[[nodiscard]] Cell CellAt(const t_Window& w, std::int64_t column, std::int64_t line);

}  // namespace toolkit
