#pragma once

#include <QtCore/QRect>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QTimer>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/desktop/host_widget.h"
#include "platform/desktop/menu_strip.h"
#include "platform/geometry.h"
#include "platform/picture.h"
#include "platform/window.h"

namespace platform::desktop {

struct Desk;

/// A window of the program. Until it is shown for the first time, or prepared for that, it is
/// nothing but the values here; its widgets are made then. Main thread.
///
/// The place of the content is what is kept, in the desktop's coordinates (origin at the upper
/// left, y downwards). The frame follows from it and from the height of what stands above. Where
/// and how large the content is shown is kept beside it: a window that is sized by zoom is shown so
/// many times as large, and no window is shown where nobody could reach it.
class HostWindow : public Window, private HostWidgetOwner {
  public:
    enum class Sizing : std::uint8_t { Fixed, ByPerson, ByZoom };

    /// Without a size the content has the one that FirstSize gives when it is asked for.
    HostWindow(Desk& desk, QString title, QSize content, Sizing sizing, Keys keys = Keys::Window);

    [[nodiscard]] Rect Frame() const override;
    [[nodiscard]] Rect ScreenFrame() const override;
    void SetFrame(const Rect& frame) override;
    void Center() override;
    [[nodiscard]] bool IsVisible() const override;
    void OrderFront() override;
    void MakeKeyAndOrderFront() override;
    void OrderOut() override;
    void SetTitle(std::string_view title) override;
    void SetStyleMask(std::int64_t mask) override;
    void SetBackgroundColor(Color color) override;
    [[nodiscard]] double Zoom() const override;
    [[nodiscard]] double LargestZoom() const override;
    void SetZoom(double zoom) override;

    /// Of the frame's content, whatever the zoom.
    [[nodiscard]] QSize ContentSize() const { return Content().size(); }

    /// Makes what the window needs to be shown, ahead of time.
    void Prepare();

    /// Waits until something of a window that was just shown can be seen, a tenth of a second at
    /// most. Only window events are served meanwhile, neither the person's input nor the queue.
    void WaitForExposure();

    /// The height above the content of titled windows changed.
    void TitleBarDidChange();

    /// A screen came, went or changed.
    void ScreensDidChange();

    /// All windows, in the order in which they were made.
    static const std::vector<HostWindow*>& All();

    /// The window that was active last among ours; nullptr when it was hidden since.
    static HostWindow* LastActive();

  protected:
    [[nodiscard]] virtual QSize FirstSize() { return {}; }
    /// Fills the content widget with what stands in the window. Called once.
    virtual void Fill(QWidget& content) = 0;
    /// The content has another size than before; before and after Fill.
    virtual void ContentDidResize(QSize /*before*/) {}
    /// The window is about to be shown.
    virtual void WillShow() {}
    /// A person cannot make the content smaller.
    [[nodiscard]] virtual QSize SmallestContent() const { return {0, 0}; }

  private:
    void CloseRequested() override;
    void GeometryChanged() override;
    void Activated() override;

    [[nodiscard]] const QRect& Content() const;
    [[nodiscard]] QRect FrameRect() const;
    [[nodiscard]] int HeightAbove() const;
    void MakeWidget();
    void Show(bool activate);
    void Place(const QRect& content);
    void Resized(QSize before);

    // host_window_place.cpp: where and how large the window is shown, what is asked of the window
    // manager for that, and what becomes of it there and in a person's hands.
    [[nodiscard]] QRect Room() const;
    [[nodiscard]] double FittingZoom() const;
    [[nodiscard]] QRect PlaceToShow() const;
    [[nodiscard]] QRect InRoom(const QRect& shown) const;
    [[nodiscard]] bool StandsWell() const;
    [[nodiscard]] int Grip() const;
    void KeepInRoom();
    void Arrange(const QRect& shown);
    void ApplyPlace();
    void Ask();
    [[nodiscard]] bool IsMaximized() const;
    void Settle();
    void TakeAnswer(const QRect& seen);
    [[nodiscard]] bool HasItsSize() const;
    void Follow();
    void Adopt(const QRect& seen);
    [[nodiscard]] QRect SeenContent() const;

    void LookAtTitleBar();
    void ApplyBackground();
    void TellWhenNothingIsVisible();

    Desk& desk_;
    QString title_;
    mutable QRect content_;  // through Content() until it has a size
    Sizing sizing_;
    Keys keys_;
    bool titled_ = true;
    bool visible_ = false;
    bool everPlaced_ = false;
    bool centred_ = false;      // by Center and not moved since
    bool exposureDue_ = false;  // shown, and nobody waited for it yet

    QRect shown_;                   // where the content is shown; empty before it has a widget
    QRect rested_;                  // shown_ when the window manager or a person had come to an end
    double zoom_ = 1;               // that was chosen
    std::optional<double> pulled_;  // the zoom that a pull asks for, until the window has its size
    int requests_ = 0;  // 2 after shown_ was asked for, 1 after it was asked for once more
    QSize refused_;     // the size that the window keeps whatever is asked for
    std::optional<Color> background_;
    HostWidget* widget_ = nullptr;  // lives as long as the process
    QTimer settle_;
};

}  // namespace platform::desktop
