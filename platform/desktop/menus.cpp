#include "platform/desktop/menus.h"

#include <QtGui/QAction>
#include <QtGui/QKeySequence>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <utility>

#include "platform/desktop/desk.h"
#include "platform/desktop/text.h"
#include "platform/input.h"
#include "platform/main_queue.h"

namespace platform::desktop {

namespace {

QKeySequence KeyEquivalentOf(const MenuItem& item) {
    const QString key = ToQt(item.KeyEquivalent);
    if (key.isEmpty()) return {};
    const std::uint64_t mask = item.KeyEquivalentModifierMask;
    Qt::KeyboardModifiers modifiers;
    if ((mask & kShiftFlag) != 0) modifiers |= Qt::ShiftModifier;
    if ((mask & kControlFlag) != 0) modifiers |= Qt::ControlModifier;
    if ((mask & kOptionFlag) != 0) modifiers |= Qt::AltModifier;
    if ((mask & kCommandFlag) != 0) modifiers |= Qt::MetaModifier;
    return QKeyCombination(modifiers, static_cast<Qt::Key>(key.toUpper().front().unicode()));
}

const MenuItem* FindItem(const MenuBar& bar, const MenuItem* wanted) {
    for (const auto& menu : bar.Menus()) {
        for (std::int64_t position = 0; position < menu->NumberOfItems(); ++position) {
            if (menu->ItemAt(position) == wanted) return wanted;
        }
    }
    return nullptr;
}

}  // namespace

Menus::Menus() {
    model_.Changed = [this] { ModelChanged(); };
}

Menus::~Menus() = default;

QMenuBar* Menus::MakeBar(QWidget& window) {
    if (stale_) Rebuild();
    auto* const bar = new QMenuBar(&window);
    bar->setNativeMenuBar(false);
    carriers_.push_back({&window, bar});
    FillBar(carriers_.back());
    return bar;
}

// A burst of changes is shown at once when it is over.
void Menus::ModelChanged() {
    stale_ = true;
    if (carriers_.empty() || std::exchange(asked_, true)) return;
    PostToMain([this] {
        asked_ = false;
        if (stale_) Rebuild();
    });
}

void Menus::Rebuild() {
    stale_ = false;
    for (const Carrier& carrier : carriers_) {
        for (QAction* const action : equivalents_) carrier.Window->removeAction(action);
    }
    equivalents_.clear();
    // The old menus go when no event of theirs is being handled any more.
    for (auto& menu : menus_) menu.release()->deleteLater();
    menus_.clear();
    for (const auto& model : model_.Menus()) {
        auto menu = std::make_unique<QMenu>(ToLabel(model->Title()));
        menu->menuAction()->setMenuRole(QAction::NoRole);
        Fill(*menu, *model);
        menus_.push_back(std::move(menu));
    }
    for (const Carrier& carrier : carriers_) FillBar(carrier);
}

void Menus::Fill(QMenu& menu, const Menu& model) {
    for (std::int64_t position = 0; position < model.NumberOfItems(); ++position) {
        const MenuItem* const item = model.ItemAt(position);
        if (item->Separator) {
            menu.addSeparator();
            continue;
        }
        QAction* const action = menu.addAction(ToLabel(item->Title));
        action->setMenuRole(QAction::NoRole);
        action->setShortcut(KeyEquivalentOf(*item));
        if (!action->shortcut().isEmpty()) equivalents_.push_back(action);
        QObject::connect(action, &QAction::triggered,
                         [this, item, title = ToQt(item->Title)] { Choose(item, title); });
    }
}

void Menus::FillBar(const Carrier& carrier) {
    carrier.Bar->clear();
    for (const auto& menu : menus_) carrier.Bar->addAction(menu->menuAction());
    for (QAction* const action : equivalents_) carrier.Window->addAction(action);
}

// The item may be gone when a menu is older than the model, so it is looked for before it is used.
// Its handler gets a copy: the handler may remove the item.
void Menus::Choose(const MenuItem* item, const QString& title) {
    if (FindItem(model_, item) == nullptr || ToQt(item->Title) != title) return;
    MenuItem chosen = *item;
    if (chosen.Chosen && !TheDesk().Ending) chosen.Chosen(chosen);
}

}  // namespace platform::desktop
