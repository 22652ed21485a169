#include "toolkit/program/menus.h"

#include <string>

#include "platform/platform.h"
#include "toolkit/core/output.h"
#include "toolkit/input/menu_bar.h"
#include "toolkit/input/menu_events.h"
#include "toolkit/program/menu_choices.h"

namespace korvandi {

namespace {

constexpr std::uint64_t kShortcut = platform::kControlFlag | platform::kShiftFlag;

platform::MenuItem* FindItem(MenuItemNumber number) {
    for (const auto& menu : platform::Current().MenuBar->Menus()) {
        for (std::int64_t i = 0; i < menu->NumberOfItems(); ++i) {
            if (menu->ItemAt(i)->Number == number) return menu->ItemAt(i);
        }
    }
    return nullptr;
}

// Has the main thread change an item.
template <typename Change>
void ChangeItem(std::string_view operation, MenuItemNumber number, const Change& change) {
    platform::RunOnMain([&] {
        platform::MenuItem* const item = FindItem(number);
        if (item == nullptr) return toolkit::PrintLine(operation, ": Item not found.");
        change(*item);
    });
}

void WhenChosen(platform::MenuItem& item) {
    toolkit::MenuChoices().Append(item.Number);
    t_MenuEventHandler(item);
}

}  // namespace

MenuItemNumber AddMenuItem(std::string_view menu, std::string_view title, std::string_view key) {
    if (menu.empty() || title.empty()) {
        toolkit::PrintLine("AddMenuItem: An item needs a menu and a title.");
        return 0;
    }
    platform::MenuItem item;
    item.Title = title;
    item.KeyEquivalent = key;
    item.KeyEquivalentModifierMask = key.empty() ? 0 : kShortcut;
    item.Chosen = WhenChosen;
    return platform::AskMain([&] {
        platform::Menu* const existing = t_FindMenu(menu);
        platform::Menu& owner =
            existing != nullptr ? *existing : platform::Current().MenuBar->Add(menu);
        return owner.Add(item).Number;
    });
}

void AddMenuSeparator(std::string_view menu) {
    platform::RunOnMain([&] {
        platform::Menu* const existing = t_FindMenu(menu);
        if (existing == nullptr) return toolkit::PrintLine("AddMenuSeparator: Menu not found.");
        existing->AddSeparator();
    });
}

void MarkMenuItem(MenuItemNumber item, bool marked) {
    ChangeItem(__func__, item, [&](platform::MenuItem& found) { found.Marked = marked; });
}

void EnableMenuItem(MenuItemNumber item, bool enabled) {
    ChangeItem(__func__, item, [&](platform::MenuItem& found) { found.Enabled = enabled; });
}

MenuItemNumber TakeMenuChoice() {
    return toolkit::MenuChoices().Take().value_or(0);
}

}  // namespace korvandi
