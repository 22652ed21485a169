#include "toolkit/input/menu_bar.h"

#include "platform/platform.h"
#include "toolkit/core/output.h"

namespace {

using platform::Menu;

Menu* ExistingMenu(std::string_view operation, std::string_view title) {
    Menu* const menu = t_FindMenu(title);
    if (menu == nullptr) toolkit::PrintLine(operation, ": Menu not found.");
    return menu;
}

// The position that the caller means, or -1 after a line.
std::int64_t ExistingPosition(std::string_view operation, const Menu& menu, std::int64_t position) {
    const std::int64_t items = menu.NumberOfItems();
    if (position == toolkit::kLastItem && items >= 1) return items - 1;
    if (position >= 0 && position < items) return position;
    toolkit::PrintLine(operation, ": Item position out of range");
    return -1;
}

}  // namespace

Menu* t_FindMenu(std::string_view menuTitle) {
    return platform::AskMain([&] { return platform::Current().MenuBar->Find(menuTitle); });
}

std::int64_t t_MenuItemIndex(std::string_view menuTitle, std::string_view itemTitle) {
    return platform::AskMain([&]() -> std::int64_t {
        const Menu* const menu = ExistingMenu("t_MenuItemIndex", menuTitle);
        if (menu == nullptr) return -2;
        for (std::int64_t i = 0; i < menu->NumberOfItems(); ++i) {
            if (menu->ItemAt(i)->Title == itemTitle) return i;
        }
        return -1;
    });
}

void t_MenuItemDelete(std::string_view menuTitle, std::int64_t position) {
    platform::RunOnMain([&] {
        Menu* const menu = ExistingMenu("t_MenuItemDelete", menuTitle);
        if (menu == nullptr) return;
        const std::int64_t existing = ExistingPosition("t_MenuItemDelete", *menu, position);
        if (existing >= 0) menu->RemoveItemAt(existing);
    });
}

std::string t_MenuItemTitle(std::string_view menuTitle, std::int64_t position) {
    return platform::AskMain([&]() -> std::string {
        const Menu* const menu = ExistingMenu("t_MenuItemTitle", menuTitle);
        if (menu == nullptr) return {};
        const std::int64_t existing = ExistingPosition("t_MenuItemTitle", *menu, position);
        return existing < 0 ? std::string() : menu->ItemAt(existing)->Title;
    });
}
