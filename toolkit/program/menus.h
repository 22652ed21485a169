#pragma once

#include <cstdint>
#include <string_view>

// Menus of the program's own, beside those that every window has. Any thread; off the main thread
// each operation but TakeMenuChoice waits for the main thread.

namespace korvandi {

/// A menu item of the program's own, by the number that AddMenuItem gave it: 1 and up. 0 is no item.
using MenuItemNumber = std::int64_t;

/// Adds an item at the end of the menu with this title, and the menu at the end of the bar when
/// there is none. `key` is one lower-case letter or digit, or empty: the item is then also chosen
/// with Control, Shift and that key; a key that another item has goes to whichever is found first.
/// Every choice of the item is told by TakeMenuChoice, by t_MenuEventQueue and by t_MenuHandler.
/// Returns the item's number; 0 after
///   "AddMenuItem: An item needs a menu and a title."   for an empty one
MenuItemNumber AddMenuItem(std::string_view menu, std::string_view title,
                           std::string_view key = {});

/// Adds a line between the items before and after it.
///   "AddMenuSeparator: Menu not found."
void AddMenuSeparator(std::string_view menu);

/// Shows the item with a mark, or without one.
///   "MarkMenuItem: Item not found."
void MarkMenuItem(MenuItemNumber item, bool marked);

/// Has the item chosen by a person, or grey.
///   "EnableMenuItem: Item not found."
void EnableMenuItem(MenuItemNumber item, bool enabled);

/// The number of the item of the program's own that was chosen first among those that were not
/// taken yet; 0 when there is none. Choices of other items are left to t_MenuEventQueue.
[[nodiscard]] MenuItemNumber TakeMenuChoice();

}  // namespace korvandi
