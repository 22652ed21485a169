#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// The menu bar as a plain model that a desktop shows in every titled window. Main thread.

namespace platform {

class Menu;

/// One item. Its fields may be changed at any time; what a person sees follows.
struct MenuItem {
    platform::Menu* Owner = nullptr;  // the menu that holds the item; nullptr for an item in none
    std::string Title;                // UTF-8; empty for a separator
    bool Separator = false;
    std::string KeyEquivalent;  // one lower-case or function-key character, or empty
    std::uint64_t KeyEquivalentModifierMask = 0;  // bits of platform/input.h
    std::int64_t Tag = 0;
    std::function<void(MenuItem&)> Chosen;  // called on the main thread when the item is chosen
    bool Marked = false;
    bool Enabled = true;  // a disabled one is shown grey and cannot be chosen
    /// Asked besides whenever the item is shown or about to be chosen; none: yes.
    std::function<bool(const MenuItem&)> CanBeChosen = {};
    std::int64_t Number = 0;  // no two items that were ever added have the same one; set by Menu
};

/// Whether the item can be chosen now.
[[nodiscard]] bool IsEnabled(const MenuItem& item);

/// A menu of the bar: a title and its items, counted from 0.
class Menu {
  public:
    Menu(std::string title, std::function<void()> changed);

    [[nodiscard]] const std::string& Title() const { return title_; }
    [[nodiscard]] std::int64_t NumberOfItems() const;
    /// nullptr for a position below 0 or not below NumberOfItems().
    [[nodiscard]] MenuItem* ItemAt(std::int64_t position) const;
    MenuItem& Add(MenuItem item);
    void AddSeparator();
    /// Does nothing for a position that is not there.
    void RemoveItemAt(std::int64_t position);

  private:
    std::string title_;
    std::function<void()> changed_;
    std::vector<std::unique_ptr<MenuItem>> items_;
};

/// All menus, from left to right.
class MenuBar {
  public:
    /// `Changed` is called after every change of the bar or of a menu in it.
    std::function<void()> Changed;

    Menu& Add(std::string_view title);
    /// The menu with this title; nullptr when there is none.
    [[nodiscard]] Menu* Find(std::string_view title) const;
    [[nodiscard]] const std::vector<std::unique_ptr<Menu>>& Menus() const { return menus_; }

  private:
    std::vector<std::unique_ptr<Menu>> menus_;
};

}  // namespace platform
