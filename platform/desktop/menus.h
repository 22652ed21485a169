#pragma once

#include <QtCore/QPointer>
#include <memory>
#include <vector>

#include "platform/desktop/menu_strip.h"
#include "platform/menu.h"

class QAction;
class QMenu;
class QWidget;

namespace platform::desktop {

/// Shows the menu bar's model in the windows: one set of menus, made when the first window needs
/// it, stands in the bars of all of them. Main thread.
class Menus {
  public:
    Menus();
    ~Menus();

    [[nodiscard]] MenuBar& Model() { return model_; }

    /// Gives the window a bar of its own with the menus in it. Their key equivalents work in the
    /// window also while the bar is hidden.
    MenuStrip* MakeBar(QWidget& window, Keys keys);

  private:
    struct Carrier {
        QWidget* Window = nullptr;
        MenuStrip* Bar = nullptr;
    };

    void ModelChanged();
    void Rebuild();
    void Fill(QMenu& menu, const Menu& model);
    void FillBar(const Carrier& carrier);
    void Show(const QMenu& menu);
    void DidHide(const QMenu& menu);
    void Choose(std::int64_t number);

    MenuBar model_;
    bool stale_ = true;   // the menus differ from the model
    bool asked_ = false;  // Rebuild is on its way
    std::vector<std::unique_ptr<QMenu>> menus_;
    std::vector<QAction*> equivalents_;  // the actions with a key equivalent
    std::vector<Carrier> carriers_;      // windows live as long as the process
};

}  // namespace platform::desktop
