#include "platform/desktop/menu_strip.h"

#include <QtGui/QAction>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QProxyStyle>

namespace platform::desktop {

namespace {

/// A tap of Alt alone opens nothing, and where Alt with a letter belongs to the program, no letter
/// is underlined.
class StripStyle : public QProxyStyle {
  public:
    explicit StripStyle(Keys keys) : keys_(keys) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        if (hint == SH_MenuBar_AltKeyNavigation) return 0;
        if (hint == SH_UnderlineShortcut && keys_ == Keys::Program) return 0;
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }

  private:
    Keys keys_;
};

// Styles live as long as the process.
QStyle* StyleFor(Keys keys) {
    static auto* const program = new StripStyle(Keys::Program);
    static auto* const window = new StripStyle(Keys::Window);
    return keys == Keys::Program ? program : window;
}

QList<QKeySequence> OpeningKeys(Keys keys) {
    QList<QKeySequence> sequences{Qt::Key_Menu, Qt::CTRL | Qt::SHIFT | Qt::Key_F10};
    if (keys == Keys::Window) sequences << Qt::Key_F10;
    return sequences;
}

// A menu with the same items that is kept current with the one that stands in the bars.
void AddCopy(QMenu& all, QMenu& menu) {
    QMenu& copy = *all.addMenu(menu.title());
    copy.addActions(menu.actions());
    QObject::connect(&copy, &QMenu::aboutToShow, &menu, &QMenu::aboutToShow);
    QObject::connect(&copy, &QMenu::aboutToHide, &menu, &QMenu::aboutToHide);
}

void ChooseFirst(QMenu& menu) {
    if (!menu.isEmpty()) menu.setActiveAction(menu.actions().front());
}

}  // namespace

MenuStrip::MenuStrip(QWidget& window, Keys keys) : QMenuBar(&window) {
    setNativeMenuBar(false);
    setStyle(StyleFor(keys));
    auto* const open = new QAction(this);
    open->setShortcuts(OpeningKeys(keys));
    connect(open, &QAction::triggered, this, &MenuStrip::OpenFirst);
    window.addAction(open);
}

void MenuStrip::SetMenus(const QList<QAction*>& menus) {
    clear();
    addActions(menus);
}

// The bar itself does so when Escape is pressed in it.
void MenuStrip::GiveKeysBack() {
    if (!hasFocus() && activeAction() == nullptr) return;
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(this, &escape);
}

// Its first item is chosen, as when a letter opens a menu. Without a bar all menus stand in one.
void MenuStrip::OpenFirst() {
    if (actions().isEmpty()) return;
    if (isVisible()) {
        setActiveAction(actions().front());
        return ChooseFirst(*actions().front()->menu());
    }
    auto* const all = new QMenu(parentWidget());
    all->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* const title : actions()) AddCopy(*all, *title->menu());
    all->popup(parentWidget()->mapToGlobal(QPoint(0, 0)));
    ChooseFirst(*all);
    ChooseFirst(*all->actions().front()->menu());
}

}  // namespace platform::desktop
