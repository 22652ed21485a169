#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/menu.h"

// The menus of the bar and their items, by titles and by positions from 0. Any thread; off the main
// thread each operation waits for the main thread.

/// The menu with this title; nullptr when there is none. To be used on the main thread.
[[nodiscard]] platform::Menu* t_FindMenu(std::string_view menuTitle);

/// Position of the first item with this title: -1 without such an item, -2 without such a menu,
/// after "t_MenuItemIndex: Menu not found."
[[nodiscard]] std::int64_t t_MenuItemIndex(std::string_view menuTitle, std::string_view itemTitle);

/// Removes the item at `position`, 65535 for the last one.
/// Faults: "t_MenuItemDelete: Menu not found."  "t_MenuItemDelete: Item position out of range"
void t_MenuItemDelete(std::string_view menuTitle, std::int64_t position);

/// The title of the item at `position`, 65535 for the last one; empty after a fault.
/// Faults: "t_MenuItemTitle: Menu not found."  "t_MenuItemTitle: Item position out of range"
[[nodiscard]] std::string t_MenuItemTitle(std::string_view menuTitle, std::int64_t position);

namespace toolkit {

inline constexpr std::int64_t kLastItem = 65'535;

}  // namespace toolkit
