#pragma once

#include <cstdint>
#include <string_view>

// Placing, sizing, titling, showing and hiding windows: the graphic windows 0 to 7 and the others,
// 8 pasteboard, 9 virtual printer, 10 system console, 11 preferences, 12 main window. Any thread;
// off the main thread each operation waits until the main thread has done the work, t_WindowTitle
// excepted. Every operation prints, for a number without a window,
//   "<operation>: Window does not exist."
// and does nothing else.
//
// The frame of graphic window n is (Width + 2 BorderWidth) x (Height + 2 BorderHeight +
// TitleHeight) points, its picture inside at (BorderWidth, BorderHeight) from the lower left.
// Screen coordinates have their origin at the lower left, y upwards.

/// A measure of a window; 0 for an unknown code and after a fault. All in points, truncated.
///   code   graphic window                        other window, frame W x H, T = t_TitleBarHeight
///   0, 1   first column, line of the text area   0
///   2, 3   last column, line of the text area    W - 1, H - 1
///   4, 5   columns, lines of the text area       W, H
///   6, 7   columns, lines of the text grid       W, H
///   8, 9   width, height of the picture          W, H - T
///   10,11  width, height of the content          W, H - T
///   12     height of the frame                   H
///   13     x of the frame's origin
///   14     distance from the top of the screen to the top of the frame
///   15,16  width, height of the screen
///   17     TitleHeight                           T
///   18,19  BorderWidth, BorderHeight             0
///   20     y of the frame's origin
/// Before the toolkit is ready a graphic window gives 0 for the codes 0 to 7 and the right-hand
/// column for the others. toolkit::PlaceCode below names the codes.
[[nodiscard]] std::int64_t t_WindowPos(std::uint8_t window, std::int64_t code);

/// Places and sizes a window: x, y of the frame's origin; width, height of the picture (graphic
/// windows) or of the content (others). -1 keeps the current value. The record's Width and Height
/// stay: a picture in a larger view is shown scaled.
/// Fault: "t_WindowSize: Window #<window> not initialized."
void t_WindowSize(std::uint8_t window, std::int64_t x, std::int64_t y, std::int64_t width,
                  std::int64_t height);

/// Centres the window on its screen.
void t_WindowCenter(std::uint8_t window);

/// Shows the window in front of the others and gives it the keys.
void t_WindowFront(std::uint8_t window);

/// Shows or hides the window. Showing the pasteboard window fetches the pasteboard's text. A text
/// window without its text view sounds the warning and prints
///   "t_WindowVisible: Pasteboard window is nil, resource undefined."
///   "t_WindowVisible: Virtual printer window is nil, resource undefined."
///   "t_WindowVisible: System console window is nil, resource undefined."
void t_WindowVisible(std::uint8_t window, bool visible);

/// Titles the window. Off the main thread it does not wait.
void t_WindowTitle(std::uint8_t window, std::string_view title);

/// Shows or hides the title bar. The frame keeps its size: t_WindowSize fits it.
void t_WindowTitleVisible(std::uint8_t window, bool visible);

/// The colour around the picture of graphic window `window` (0 to 7): colour number `color` modulo
/// 16. A window without a platform window is no fault.
/// Faults: "t_ColorBorder: Window is not a graphic window."
///         "t_ColorBorder: Window #<window> not initialized."
void t_ColorBorder(std::uint8_t window, std::int64_t color);

namespace toolkit {

/// The codes of t_WindowPos in their order.
struct PlaceCode {
    enum : std::int64_t {
        FirstColumn,
        FirstLine,
        LastColumn,
        LastLine,
        Columns,
        Lines,
        GridColumns,
        GridLines,
        PictureWidth,
        PictureHeight,
        ContentWidth,
        ContentHeight,
        FrameHeight,
        FrameX,
        TopDistance,
        ScreenWidth,
        ScreenHeight,
        TitleHeight,
        BorderWidth,
        BorderHeight,
        FrameY,
    };
};

}  // namespace toolkit
