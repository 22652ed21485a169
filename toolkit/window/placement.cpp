#include "toolkit/window/placement.h"

#include <functional>
#include <string>

#include "platform/platform.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/outlets.h"
#include "toolkit/core/output.h"
#include "toolkit/core/palette.h"
#include "toolkit/core/sounds.h"
#include "toolkit/core/text_layout.h"
#include "toolkit/core/threads.h"
#include "toolkit/core/window_numbers.h"
#include "toolkit/window/host_windows.h"
#include "toolkit/window/window.h"

using platform::RunOnMain;
using toolkit::Minus;
using toolkit::OtherWindow;
using toolkit::PlaceCode;
using toolkit::Plus;
using toolkit::Times;
using toolkit::Truncated;

namespace {

constexpr std::int64_t kKeep = -1;

// The platform window of a number, or nullptr after the line that there is none.
platform::Window* ExistingWindow(std::string_view operation, std::uint8_t window) {
    platform::Window* const host = t_WindowHostWindow(window);
    if (host == nullptr) toolkit::PrintLine(operation, ": Window does not exist.");
    return host;
}

// The window that a placement code is asked of; `Record` is nullptr for the right-hand column.
struct Subject {
    platform::Window* Host;
    const t_Window* Record;

    [[nodiscard]] std::int64_t Width() const {
        if (Record == nullptr) return Truncated(Host->Frame().Width);
        return Plus(Record->Width, Times(2, Record->BorderWidth));
    }
    [[nodiscard]] std::int64_t Height() const {
        if (Record == nullptr) return Truncated(Host->Frame().Height);
        return Plus(Plus(Record->Height, Times(2, Record->BorderHeight)), Record->TitleHeight);
    }
    [[nodiscard]] std::int64_t ContentHeight() const { return Minus(Height(), TitleHeight()); }
    [[nodiscard]] std::int64_t TitleHeight() const {
        return Record == nullptr ? t_TitleBarHeight : Record->TitleHeight;
    }
};

using Measure = std::int64_t (*)(const Subject&);

template <auto Field>
std::int64_t OfRecord(const Subject& s) {
    return s.Record->*Field;
}

template <auto First, auto Last>
std::int64_t Count(const Subject& s) {
    return Plus(Minus(s.Record->*Last, s.Record->*First), 1);
}

std::int64_t Zero(const Subject& /*s*/) {
    return 0;
}
std::int64_t FrameWidth(const Subject& s) {
    return s.Width();
}
std::int64_t FrameHeight(const Subject& s) {
    return s.Height();
}
std::int64_t LastX(const Subject& s) {
    return Minus(s.Width(), 1);
}
std::int64_t LastY(const Subject& s) {
    return Minus(s.Height(), 1);
}
std::int64_t ContentHeight(const Subject& s) {
    return s.ContentHeight();
}
std::int64_t PictureWidth(const Subject& s) {
    return Minus(s.Width(), Times(2, s.Record->BorderWidth));
}
std::int64_t PictureHeight(const Subject& s) {
    return Minus(s.ContentHeight(), Times(2, s.Record->BorderHeight));
}
std::int64_t TitleHeight(const Subject& s) {
    return s.TitleHeight();
}
std::int64_t FrameX(const Subject& s) {
    return Truncated(s.Host->Frame().X);
}
std::int64_t FrameY(const Subject& s) {
    return Truncated(s.Host->Frame().Y);
}
std::int64_t ScreenWidth(const Subject& s) {
    return Truncated(s.Host->ScreenFrame().Width);
}
std::int64_t ScreenHeight(const Subject& s) {
    return Truncated(s.Host->ScreenFrame().Height);
}
std::int64_t TopDistance(const Subject& s) {
    return Minus(Minus(ScreenHeight(s), FrameY(s)), s.Height());
}

struct CodeRow {
    std::int64_t Code;
    Measure Graphic;
    Measure Other;
};

constexpr CodeRow kCodes[] = {
    {PlaceCode::FirstColumn, OfRecord<&t_Window::TextFirstColumn>, Zero},
    {PlaceCode::FirstLine, OfRecord<&t_Window::TextFirstLine>, Zero},
    {PlaceCode::LastColumn, OfRecord<&t_Window::TextLastColumn>, LastX},
    {PlaceCode::LastLine, OfRecord<&t_Window::TextLastLine>, LastY},
    {PlaceCode::Columns, Count<&t_Window::TextFirstColumn, &t_Window::TextLastColumn>, FrameWidth},
    {PlaceCode::Lines, Count<&t_Window::TextFirstLine, &t_Window::TextLastLine>, FrameHeight},
    {PlaceCode::GridColumns, OfRecord<&t_Window::TextWidth>, FrameWidth},
    {PlaceCode::GridLines, OfRecord<&t_Window::TextHeight>, FrameHeight},
    {PlaceCode::PictureWidth, PictureWidth, FrameWidth},
    {PlaceCode::PictureHeight, PictureHeight, ContentHeight},
    {PlaceCode::ContentWidth, FrameWidth, FrameWidth},
    {PlaceCode::ContentHeight, ContentHeight, ContentHeight},
    {PlaceCode::FrameHeight, FrameHeight, FrameHeight},
    {PlaceCode::FrameX, FrameX, FrameX},
    {PlaceCode::TopDistance, TopDistance, TopDistance},
    {PlaceCode::ScreenWidth, ScreenWidth, ScreenWidth},
    {PlaceCode::ScreenHeight, ScreenHeight, ScreenHeight},
    {PlaceCode::TitleHeight, TitleHeight, TitleHeight},
    {PlaceCode::BorderWidth, OfRecord<&t_Window::BorderWidth>, Zero},
    {PlaceCode::BorderHeight, OfRecord<&t_Window::BorderHeight>, Zero},
    {PlaceCode::FrameY, FrameY, FrameY},
};

consteval bool IsIndexedByCode() {
    std::int64_t index = 0;
    for (const CodeRow& row : kCodes) {
        if (row.Code != index++) return false;
    }
    return true;
}
static_assert(IsIndexedByCode());

// The first code that means something for a graphic window before the toolkit is ready.
constexpr std::int64_t kFirstCodeBeforeReady = PlaceCode::PictureWidth;

std::int64_t Measured(platform::Window* host, std::uint8_t window, std::int64_t code) {
    if (code < 0 || code >= std::ssize(kCodes)) return 0;
    const CodeRow& row = kCodes[code];
    if (window >= toolkit::kGraphicWindows) return row.Other({host, nullptr});
    if (t_ToolsReady) return row.Graphic({host, &t_Windows[window]});
    return code < kFirstCodeBeforeReady ? 0 : row.Other({host, nullptr});
}

platform::Rect RectOf(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height) {
    return {static_cast<double>(x), static_cast<double>(y), static_cast<double>(width),
            static_cast<double>(height)};
}

struct Place {
    std::int64_t X;
    std::int64_t Y;
    std::int64_t Width;
    std::int64_t Height;
};

void SizeGraphicWindow(platform::Window& host, std::uint8_t window, const Place& place) {
    t_Window& w = t_Windows[window];
    if (!toolkit::IsUsable(w, toolkit::Need::SetUp)) {
        toolkit::PrintNotInitialized("t_WindowSize", window);
        return;
    }
    const std::int64_t width = Plus(place.Width, Times(2, w.BorderWidth));
    const std::int64_t height = Plus(Plus(place.Height, Times(2, w.BorderHeight)), w.TitleHeight);
    host.SetFrame(RectOf(place.X, place.Y, width, height));
    platform::View* const view = t_WindowView(window);
    if (view == nullptr) return;
    const platform::Rect shown = RectOf(0, 0, place.Width, place.Height);
    view->SetFrameSize(shown.Width, shown.Height);
    view->SetFrameOrigin(static_cast<double>(std::int64_t(w.BorderWidth)),
                         static_cast<double>(std::int64_t(w.BorderHeight)));
    w.DrawingRect = shown;
}

platform::ScrollView* ScrollViewOf(const OtherWindow& row) {
    const toolkit::Outlets* const outlets = t_AppDelegate;
    if (outlets == nullptr || t_WindowTextView(row.Number) == nullptr) return nullptr;
    return outlets->*row.Scroll;
}

void SizeTextWindow(platform::Window& host, const OtherWindow& row, const Place& place,
                    std::int64_t widthArgument, std::int64_t heightArgument) {
    platform::ScrollView* const scroll = ScrollViewOf(row);
    const platform::Rect before = scroll == nullptr ? platform::Rect{} : scroll->Frame();
    if (host.IsVisible()) host.OrderFront();
    host.SetFrame(RectOf(place.X, place.Y, place.Width, Plus(t_TitleBarHeight, place.Height)));
    if (scroll == nullptr) return;
    platform::Rect frame = scroll->Frame();
    frame.Width = widthArgument > 0
                      ? static_cast<double>(widthArgument) - toolkit::kSizedTextRestOfWidth
                      : before.Width;
    frame.Height = heightArgument > 0
                       ? static_cast<double>(heightArgument) - toolkit::kSizedTextRestOfHeight
                       : before.Height;
    scroll->SetFrame(frame);
}

void ShowOrHide(platform::Window& host, bool visible) {
    visible ? host.OrderFront() : host.OrderOut();
}

// The row of a text window; nullptr for other windows.
const OtherWindow* TextWindowOf(std::uint8_t window) {
    const OtherWindow* const row = toolkit::OtherWindowOf(window);
    return row == nullptr || row->Text == nullptr ? nullptr : row;
}

void ShowTextWindow(platform::Window& host, const OtherWindow& row, bool visible) {
    platform::TextView* const text = t_WindowTextView(row.Number);
    if (text == nullptr) {
        toolkit::PrintLine("t_WindowVisible: ", row.Name, " window is nil, resource undefined.");
        t_SysBeep();
        return;
    }
    RunOnMain([&] {
        if (visible && row.Number == toolkit::kPasteboardWindow) {
            text->SetText(platform::Current().Pasteboard->Text().value_or(std::string()));
        }
        ShowOrHide(host, visible);
        if (visible) text->SetNeedsDisplay();
    });
}

}  // namespace

std::int64_t t_WindowPos(std::uint8_t window, std::int64_t code) {
    platform::Window* const host = ExistingWindow(__func__, window);
    if (host == nullptr) return 0;
    return platform::AskMain([&] { return Measured(host, window, code); });
}

void t_WindowSize(std::uint8_t window, std::int64_t x, std::int64_t y, std::int64_t width,
                  std::int64_t height) {
    platform::Window* const host = ExistingWindow(__func__, window);
    if (host == nullptr) return;
    RunOnMain([&] {
        const auto given = [&](std::int64_t value, std::int64_t code) {
            return value == kKeep ? Measured(host, window, code) : value;
        };
        const Place place = {given(x, PlaceCode::FrameX), given(y, PlaceCode::FrameY),
                             given(width, PlaceCode::PictureWidth),
                             given(height, PlaceCode::PictureHeight)};
        if (window < toolkit::kGraphicWindows) {
            SizeGraphicWindow(*host, window, place);
        } else if (const OtherWindow* const row = TextWindowOf(window); row != nullptr) {
            SizeTextWindow(*host, *row, place, width, height);
        } else {
            host->SetFrame(
                RectOf(place.X, place.Y, place.Width, Plus(t_TitleBarHeight, place.Height)));
        }
    });
}

void t_WindowCenter(std::uint8_t window) {
    platform::Window* const host = ExistingWindow(__func__, window);
    if (host != nullptr) RunOnMain([host] { host->Center(); });
}

void t_WindowFront(std::uint8_t window) {
    platform::Window* const host = ExistingWindow(__func__, window);
    if (host == nullptr) return;
    t_WindowVisible(window, true);
    RunOnMain([host] { host->MakeKeyAndOrderFront(); });
}

void t_WindowVisible(std::uint8_t window, bool visible) {
    platform::Window* const host = ExistingWindow(__func__, window);
    if (host == nullptr) return;
    if (const OtherWindow* const row = TextWindowOf(window); row != nullptr) {
        return ShowTextWindow(*host, *row, visible);
    }
    RunOnMain([&] {
        ShowOrHide(*host, visible);
        if (window >= toolkit::kGraphicWindows) return;
        // Before the main thread goes on to draw, so that the first frame is there at once.
        t_Windows[window].Visible = visible;
        if (!visible) t_Windows[window].UpdateDuration = 0;
    });
}

void t_WindowTitle(std::uint8_t window, std::string_view title) {
    platform::Window* const host = ExistingWindow(__func__, window);
    if (host == nullptr) return;
    if (platform::OnMain()) return host->SetTitle(title);
    platform::PostToMain([host, text = std::string(title)] { host->SetTitle(text); });
}

void t_WindowTitleVisible(std::uint8_t window, bool visible) {
    platform::Window* const host = ExistingWindow(__func__, window);
    if (host == nullptr) return;
    const std::int64_t mask =
        visible ? platform::kTitledClosableMiniaturizable : platform::kBorderless;
    RunOnMain([&] {
        if (window < toolkit::kGraphicWindows) {
            t_Windows[window].TitleHeight = visible ? std::int64_t(t_TitleBarHeight) : 0;
        }
        host->SetStyleMask(mask);
    });
}

void t_ColorBorder(std::uint8_t window, std::int64_t color) {
    t_Window* const w = toolkit::UsableWindow(__func__, window, toolkit::Need::SetUp);
    if (w == nullptr) return;
    const t_RGBColor border = t_PaletteColor(toolkit::Modulo16(color));
    w->RGBColorBorder = border;
    RunOnMain([&] {
        platform::Window* const host = t_WindowHostWindow(window);
        if (host == nullptr) return;
        host->SetBackgroundColor({border.Alpha, border.Red, border.Green, border.Blue});
    });
}
