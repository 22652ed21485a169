#include "platform/desktop/menus.h"

#include <QtGui/QAction>
#include <QtGui/QKeySequence>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <utility>

#include "platform/desktop/text.h"
#include "platform/input.h"
#include "platform/main_queue.h"

namespace platform::desktop {

namespace {

Qt::KeyboardModifiers ModifiersOf(std::uint64_t mask) {
    Qt::KeyboardModifiers modifiers;
    if ((mask & kShiftFlag) != 0) modifiers |= Qt::ShiftModifier;
    if ((mask & kControlFlag) != 0) modifiers |= Qt::ControlModifier;
    if ((mask & kOptionFlag) != 0) modifiers |= Qt::AltModifier;
    if ((mask & kCommandFlag) != 0) modifiers |= Qt::MetaModifier;
    return modifiers;
}

// A sign that some keyboards have above another one takes the Shift key for itself there.
QList<QKeySequence> KeyEquivalentsOf(const MenuItem& item) {
    const QString key = ToQt(item.KeyEquivalent).toUpper();
    if (key.isEmpty()) return {};
    const Qt::KeyboardModifiers modifiers = ModifiersOf(item.KeyEquivalentModifierMask);
    const char16_t sign = key.front().unicode();
    if (sign >= kF1Character && sign < kInsertCharacter) {
        const auto functionKey = static_cast<Qt::Key>(Qt::Key_F1 + (sign - kF1Character));
        return {QKeyCombination(modifiers, functionKey)};
    }
    QList<QKeySequence> sequences{QKeyCombination(modifiers, static_cast<Qt::Key>(sign))};
    if (!key.front().isLetter()) {
        sequences << QKeyCombination(modifiers & ~Qt::ShiftModifier, static_cast<Qt::Key>(sign));
    }
    return sequences;
}

MenuItem* ItemNumbered(const MenuBar& bar, std::int64_t number) {
    for (const auto& menu : bar.Menus()) {
        for (std::int64_t position = 0; position < menu->NumberOfItems(); ++position) {
            MenuItem* const item = menu->ItemAt(position);
            if (item->Number == number) return item;
        }
    }
    return nullptr;
}

// The title with a mark before its first letter that no menu before it has taken.
QString Marked(const std::string& title, QString& taken) {
    QString label = ToLabel(title);
    for (qsizetype i = 0; i < label.size(); ++i) {
        const QChar letter = label[i].toUpper();
        if (!letter.isLetter() || taken.contains(letter)) continue;
        taken += letter;
        return label.insert(i, QLatin1Char('&'));
    }
    return label;
}

}  // namespace

Menus::Menus() {
    model_.Changed = [this] { ModelChanged(); };
}

Menus::~Menus() = default;

MenuStrip* Menus::MakeBar(QWidget& window, Keys keys) {
    if (stale_) Rebuild();
    auto* const bar = new MenuStrip(window, keys);
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
    QString letters;
    for (const auto& model : model_.Menus()) {
        auto menu = std::make_unique<QMenu>(Marked(model->Title(), letters));
        menu->menuAction()->setMenuRole(QAction::NoRole);
        QObject::connect(menu.get(), &QMenu::aboutToShow, [this, m = menu.get()] { Show(*m); });
        QObject::connect(
            menu.get(), &QMenu::aboutToHide, menu.get(), [this, m = menu.get()] { DidHide(*m); },
            Qt::QueuedConnection);
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
        action->setShortcuts(KeyEquivalentsOf(*item));
        action->setData(QVariant::fromValue(item->Number));
        if (!action->shortcut().isEmpty()) equivalents_.push_back(action);
        QObject::connect(action, &QAction::triggered,
                         [this, number = item->Number] { Choose(number); });
    }
}

void Menus::FillBar(const Carrier& carrier) {
    QList<QAction*> titles;
    for (const auto& menu : menus_) titles << menu->menuAction();
    carrier.Bar->SetMenus(titles);
    for (QAction* const action : equivalents_) carrier.Window->addAction(action);
}

// The items as they are now.
void Menus::Show(const QMenu& menu) {
    for (QAction* const action : menu.actions()) {
        const MenuItem* const item = ItemNumbered(model_, action->data().toLongLong());
        if (item == nullptr) continue;
        action->setText(ToLabel(item->Title));
        action->setCheckable(item->Marked);
        action->setChecked(item->Marked);
        action->setEnabled(IsEnabled(*item));
    }
}

// Whether a key equivalent can do something is found out when it is pressed.
void Menus::DidHide(const QMenu& menu) {
    for (QAction* const action : menu.actions()) action->setEnabled(true);
    if (QApplication::activePopupWidget() != nullptr) return;
    for (const Carrier& carrier : carriers_) carrier.Bar->GiveKeysBack();
}

// The item may be gone when a menu is older than the model. Its handler gets a copy: the handler
// may remove the item.
void Menus::Choose(std::int64_t number) {
    const MenuItem* const item = ItemNumbered(model_, number);
    if (item == nullptr || !TheMainQueue().IsOpen() || !IsEnabled(*item)) return;
    MenuItem chosen = *item;
    if (chosen.Chosen) chosen.Chosen(chosen);
}

}  // namespace platform::desktop
