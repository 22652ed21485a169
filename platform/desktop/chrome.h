#pragma once

#include <QtCore/QMargins>

namespace platform::desktop {

/// What stands around the content of a titled window, in points: the frame that the window manager
/// draws, its title bar above, and the menu bar. It is the same for all windows. Main thread.
class Chrome {
  public:
    /// Finds out how large all of it is. Otherwise done when something is asked for.
    void Measure();
    /// Title bar and menu bar together.
    [[nodiscard]] int Height() { return TitleBar() + MenuBar(); }
    [[nodiscard]] int MenuBar();
    [[nodiscard]] int TitleBar() { return Frame().top(); }
    /// As asked of the window manager at first, then as seen at the windows.
    [[nodiscard]] const QMargins& Frame();

    /// A shown window has this frame. Tells the client when its title bar's height is news.
    void FrameSeen(const QMargins& frame);

  private:
    static constexpr int kUnknown = -1;

    int menuBar_ = kUnknown;
    QMargins frame_{0, kUnknown, 0, 0};
};

}  // namespace platform::desktop
