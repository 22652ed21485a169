#pragma once

#include <QtWidgets/QMenuBar>
#include <cstdint>

namespace platform::desktop {

/// Whom the keys of a window belong to while no menu is open.
enum class Keys : std::uint8_t {
    Program,  // all but the menus' own: a graphic window
    Window,   // the window's controls; F10 and Alt with a letter open menus, too
};

/// The menu bar of a window. The Menu key and Control-Shift-F10 open its first menu, also while the
/// bar is hidden; a menu that closes gives the keys back to the window. Main thread.
class MenuStrip : public QMenuBar {
  public:
    MenuStrip(QWidget& window, Keys keys);

    /// Shows these menus instead of those before.
    void SetMenus(const QList<QAction*>& menus);

    /// No menu is open any more: the keys go where they came from.
    void GiveKeysBack();

  private:
    void OpenFirst();
};

}  // namespace platform::desktop
