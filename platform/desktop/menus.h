#pragma once

#include <QtCore/QPointer>
#include <memory>
#include <vector>

#include "platform/menu.h"

class QAction;
class QMenu;
class QMenuBar;
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
    QMenuBar* MakeBar(QWidget& window);

  private:
    struct Carrier {
        QWidget* Window = nullptr;
        QMenuBar* Bar = nullptr;
    };

    void ModelChanged();
    void Rebuild();
    void Fill(QMenu& menu, const Menu& model);
    void FillBar(const Carrier& carrier);
    void Choose(const MenuItem* item, const QString& title);

    MenuBar model_;
    bool stale_ = true;   // the menus differ from the model
    bool asked_ = false;  // Rebuild is on its way
    std::vector<std::unique_ptr<QMenu>> menus_;
    std::vector<QAction*> equivalents_;  // the actions with a key equivalent
    std::vector<Carrier> carriers_;      // windows live as long as the process
};

}  // namespace platform::desktop
