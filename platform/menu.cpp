#include "platform/menu.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace platform {

bool IsEnabled(const MenuItem& item) {
    return item.Enabled && (!item.CanBeChosen || item.CanBeChosen(item));
}

Menu::Menu(std::string title, std::function<void()> changed)
    : title_(std::move(title)), changed_(std::move(changed)) {}

std::int64_t Menu::NumberOfItems() const {
    return std::ssize(items_);
}

MenuItem* Menu::ItemAt(std::int64_t position) const {
    if (position < 0 || position >= NumberOfItems()) return nullptr;
    return items_[static_cast<std::size_t>(position)].get();
}

MenuItem& Menu::Add(MenuItem item) {
    items_.push_back(std::make_unique<MenuItem>(std::move(item)));
    items_.back()->Owner = this;
    static std::int64_t lastNumber = 0;
    items_.back()->Number = ++lastNumber;
    changed_();
    return *items_.back();
}

void Menu::AddSeparator() {
    MenuItem line;
    line.Separator = true;
    Add(std::move(line));
}

void Menu::RemoveItemAt(std::int64_t position) {
    if (ItemAt(position) == nullptr) return;
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(position));
    changed_();
}

Menu& MenuBar::Add(std::string_view title) {
    menus_.push_back(std::make_unique<Menu>(std::string(title), [this] {
        if (Changed) Changed();
    }));
    if (Changed) Changed();
    return *menus_.back();
}

Menu* MenuBar::Find(std::string_view title) const {
    const auto found = std::find_if(menus_.begin(), menus_.end(),
                                    [title](const auto& menu) { return menu->Title() == title; });
    return found == menus_.end() ? nullptr : found->get();
}

}  // namespace platform
