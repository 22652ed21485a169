#pragma once

#include <QtCore/QMargins>
#include <functional>

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

    /// A shown window has this frame.
    void FrameSeen(const QMargins& frame);

    /// Called when FrameSeen brings another height of the title bar; may be empty.
    std::function<void()> Changed;

  private:
    static constexpr int kUnknown = -1;

    int menuBar_ = kUnknown;
    QMargins frame_{0, kUnknown, 0, 0};
};

}  // namespace platform::desktop
