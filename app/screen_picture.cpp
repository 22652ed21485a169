#include "app/screen_picture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include "toolkit/core/window_numbers.h"
#include "toolkit/graphics/frame.h"
#include "toolkit/window/host_windows.h"

namespace {

using platform::Color;
using platform::Picture;

constexpr Color kGround = {255, 58, 66, 74};
constexpr std::int64_t kAround = 16;  // pixels of the ground on each side

Picture Plain(std::int64_t width, std::int64_t height, Color color) {
    Picture picture;
    picture.Width = width;
    picture.Height = height;
    picture.Bytes.reserve(static_cast<std::size_t>(width * height * 4));
    for (std::int64_t i = 0; i < width * height; ++i) {
        picture.Bytes.insert(picture.Bytes.end(),
                             {color.Alpha, color.Red, color.Green, color.Blue});
    }
    return picture;
}

// Copies `picture` into `to`, its upper left corner at (left, top), where it lies inside.
void Lay(const Picture& picture, Picture& to, std::int64_t left, std::int64_t top) {
    for (std::int64_t y = 0; y < picture.Height; ++y) {
        const std::uint8_t* const row = picture.Bytes.data() + y * picture.Width * 4;
        std::copy(row, row + picture.Width * 4,
                  to.Bytes.data() + ((y + top) * to.Width + left) * 4);
    }
}

// A content on the screen; points of the screen are pixels here, y from the top downwards.
struct Placed {
    std::int64_t Left;
    std::int64_t Top;
    Picture Content;
};

std::vector<Placed> ShownWindows(const platform::headless::Headless& desktop) {
    std::vector<Placed> shown;
    for (const platform::headless::HeadlessWindow* const window : desktop.Order) {
        const std::uint8_t n = toolkit::WindowNumber(window);
        if (n >= toolkit::kGraphicWindows || !window->IsVisible()) continue;
        const std::optional<Picture> picture = t_WindowSnapshot(n);
        if (!picture) continue;
        Picture content = WithBorder(*picture, t_Windows[n]);
        const std::int64_t left = std::llround(window->Frame().X);
        const std::int64_t top = -std::llround(window->Frame().Y) - content.Height;
        shown.push_back({left, top, std::move(content)});
    }
    return shown;
}

}  // namespace

Picture WithBorder(const Picture& picture, const t_Window& w) {
    const std::int64_t side = std::max<std::int64_t>(w.BorderWidth, 0);
    const std::int64_t edge = std::max<std::int64_t>(w.BorderHeight, 0);
    const t_RGBColor border = w.RGBColorBorder;
    Picture framed = Plain(picture.Width + 2 * side, picture.Height + 2 * edge,
                           {border.Alpha, border.Red, border.Green, border.Blue});
    Lay(picture, framed, side, edge);
    return framed;
}

std::optional<Picture> ScreenPicture(const platform::headless::Headless& desktop) {
    const std::vector<Placed> windows = ShownWindows(desktop);
    if (windows.empty()) return std::nullopt;
    std::int64_t left = std::numeric_limits<std::int64_t>::max();
    std::int64_t top = left;
    std::int64_t right = std::numeric_limits<std::int64_t>::min();
    std::int64_t bottom = right;
    for (const Placed& window : windows) {
        left = std::min(left, window.Left);
        top = std::min(top, window.Top);
        right = std::max(right, window.Left + window.Content.Width);
        bottom = std::max(bottom, window.Top + window.Content.Height);
    }
    Picture screen = Plain(right - left + 2 * kAround, bottom - top + 2 * kAround, kGround);
    for (const Placed& window : windows) {
        Lay(window.Content, screen, window.Left - left + kAround, window.Top - top + kAround);
    }
    return screen;
}
