#pragma once

namespace platform::desktop {

/// The heights of what stands above the content of a titled window, in points: the title bar, which
/// the window manager draws, and the menu bar. They are the same for all windows. Main thread.
class Chrome {
  public:
    /// Finds both heights out. Otherwise done when one is asked for.
    void Measure();
    /// Title bar and menu bar together.
    [[nodiscard]] int Height() { return TitleBar() + MenuBar(); }
    [[nodiscard]] int MenuBar();
    /// As asked of the window manager at first, then as seen at the windows.
    [[nodiscard]] int TitleBar();

    /// A shown window has this much above it. Tells the client when that is news.
    void TitleBarSeen(int height);

  private:
    static constexpr int kUnknown = -1;

    int menuBar_ = kUnknown;
    int titleBar_ = kUnknown;
};

}  // namespace platform::desktop
