#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/geometry.h"
#include "platform/picture.h"
#include "platform/text_layout.h"
#include "platform/view.h"

// Windows and what can stand in them. Main thread throughout.

namespace platform {

/// Style masks of Window::SetStyleMask.
inline constexpr std::int64_t kBorderless = 0;
inline constexpr std::int64_t kTitledClosableMiniaturizable = 7;

/// The largest number that Window::SetZoom keeps; above it counts as this.
inline constexpr double kLargestZoom = 16;

/// A window on the screen.
///
/// Its frame is the content and everything above it: the title bar that the window manager draws
/// and the menu bar. Side and bottom borders that a window manager adds lie outside the frame.
/// A borderless window has no title bar and no menu bar: frame and content are the same.
class Window {
  public:
    virtual ~Window() = default;

    /// In screen coordinates, origin at the lower left of the screen.
    [[nodiscard]] virtual Rect Frame() const = 0;
    /// The whole screen that shows the window (the first screen for a window never shown).
    [[nodiscard]] virtual Rect ScreenFrame() const = 0;
    /// Places and sizes the window, shown or not. A platform may round to whole points and keep
    /// the content at one point or more.
    virtual void SetFrame(const Rect& frame) = 0;
    /// Centres the frame on the screen. Of a window that is too large for it the upper left corner
    /// stays on the screen.
    virtual void Center() = 0;

    /// Shown and not hidden since; a minimised window counts as visible.
    [[nodiscard]] virtual bool IsVisible() const = 0;
    /// Shows the window in front of the others; the focus stays where it is. A window that was
    /// given no place yet, by Center or by SetFrame with another origin, is centred when it is
    /// first shown.
    virtual void OrderFront() = 0;
    /// Shows the window in front of the others and gives it the focus.
    virtual void MakeKeyAndOrderFront() = 0;
    /// Hides the window; it keeps its place.
    virtual void OrderOut() = 0;

    /// UTF-8.
    virtual void SetTitle(std::string_view title) = 0;
    /// kTitledClosableMiniaturizable or kBorderless. The frame stays as it is: a content that loses
    /// what stood above it grows upwards into that place. Views keep their places (their origin is
    /// the lower left), texts and rulers follow, and the client is told windowDidResize. Nothing
    /// happens when the window has this mask already.
    virtual void SetStyleMask(std::int64_t mask) = 0;
    /// What is seen where no view stands.
    virtual void SetBackgroundColor(Color color) = 0;

    /// How many times as large as its frame a graphic window is shown; 1 for other windows.
    ///
    /// Zoom is a matter of showing. Frames, screen sizes and the places of clicks are those of the
    /// window at zoom 1; what stands above the content is not zoomed. The window is shown about the
    /// centre of its frame and moved so that its screen shows all of it; where the person moves it,
    /// its frame moves along. It shrinks by itself to fit its screen. Pulling a side zooms, and
    /// where it cannot have its proportions the picture stands in the middle.
    [[nodiscard]] virtual double Zoom() const = 0;
    /// The largest zoom at which the screen shows all of the window.
    [[nodiscard]] virtual double LargestZoom() const = 0;
    /// What the person chose, 1 until then: the window is shown at this zoom wherever it fits its
    /// screen, at the largest one elsewhere. Does nothing for other windows and for numbers that
    /// are not above 0.
    virtual void SetZoom(double zoom) = 0;
};

/// A text that scrolls, inside a text window. All texts are UTF-8.
class TextView {
  public:
    virtual ~TextView() = default;

    [[nodiscard]] virtual std::string Text() const = 0;
    virtual void SetText(std::string text) = 0;
    /// Adds at the end; a view that stands at its end follows. When more than the line limit is
    /// held, the oldest lines go.
    virtual void AppendText(std::string_view text) = 0;
    /// How many lines are kept; 0: all. A line ends with a line feed, a carriage return, or a
    /// carriage return and a line feed; the last line counts as one also while it is empty.
    virtual void SetLineLimit(std::int64_t lines) = 0;
    /// Substitution of quotes, dashes and text, detection of links and data.
    virtual void SetAutomaticSubstitutions(bool on) = 0;
    virtual void SetFont(std::string_view family, double points) = 0;
    virtual void SetNeedsDisplay() = 0;
};

/// The frame around a text view that scrolls it; in the window's content, origin lower left. It
/// keeps its distance to all sides of the content when that gets another size.
class ScrollView {
  public:
    virtual ~ScrollView() = default;

    [[nodiscard]] virtual Rect Frame() const = 0;
    virtual void SetFrame(const Rect& frame) = 0;
};

/// The ruler above a text: shows the columns of a fixed-width text. In the window's content. It
/// keeps its distance to the sides and the top.
class Ruler {
  public:
    virtual ~Ruler() = default;

    [[nodiscard]] virtual Rect Frame() const = 0;
    virtual void SetFrame(const Rect& frame) = 0;
};

/// One row of a form window, from top to bottom.
struct FormRow {
    enum class Kind : std::uint8_t {
        Heading,   // Title in large type
        Label,     // Title as a text that wraps
        Button,    // calls Changed(0)
        CheckBox,  // calls Changed(1) and Changed(0)
        Choice,    // Options, calls Changed(index from 0)
    };

    Kind What = Kind::Label;
    std::string Title;
    std::vector<std::string> Options;
    std::int64_t Value = 0;                     // CheckBox: 0 or 1; Choice: index from 0
    std::function<void(std::int64_t)> Changed;  // called on the main thread
    // Both are asked when the window is shown, and every now and then while it is to be seen.
    std::function<bool()> Enabled;  // none: always
    /// What a label or a button says instead of Title; a row that says nothing is left out.
    std::function<std::string()> Wording;
};

/// The parts of a window that shows a drawn picture; all nullptr where there are no windows.
struct GraphicWindowParts {
    Window* Host = nullptr;
    View* Area = nullptr;
};

/// The parts of a text window; `Columns` is nullptr in a window without a ruler, all are where
/// there are no windows.
struct TextWindowParts {
    Window* Host = nullptr;
    ScrollView* Scroll = nullptr;
    TextView* Text = nullptr;
    Ruler* Columns = nullptr;
};

/// Makes windows. They are hidden when made, live as long as the process and carry the menus of
/// the menu bar while they are titled. Optional: as it stands it makes none.
class WindowMaker {
  public:
    virtual ~WindowMaker() = default;

    /// A window around one view that `client` draws; it is sized by zoom. Its first size is the
    /// platform's choice. Has client.awakeFromNib run before it returns. The client must outlive
    /// the window.
    virtual GraphicWindowParts MakeGraphicWindow(ViewClient& /*client*/) { return {}; }
    /// A text window that the person may size; `width` and `height` are the content's, in points.
    virtual TextWindowParts MakeTextWindow(std::string_view /*title*/, double /*width*/,
                                           double /*height*/, const TextLayout& /*layout*/) {
        return {};
    }
    /// A window with a column of labels and controls, sized to fit them.
    virtual Window* MakeFormWindow(std::string_view /*title*/, std::vector<FormRow> /*rows*/) {
        return nullptr;
    }
};

}  // namespace platform
