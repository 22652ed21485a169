#include "toolkit/input/menu.h"

#include <algorithm>
#include <utility>

constinit toolkit::Shared<bool> t_MenuEventPending;
toolkit::EventQueue<t_MenuEvent>& t_MenuEventQueue =
    *new toolkit::EventQueue<t_MenuEvent>(t_MenuEventPending);
toolkit::MenuActionList& t_MenuActions = *new toolkit::MenuActionList;

namespace toolkit {

void MenuActionList::push_back(t_MenuAction action) {
    const std::lock_guard lock(mutex_);
    actions_.push_back(std::move(action));
}

std::int64_t MenuActionList::size() const {
    const std::lock_guard lock(mutex_);
    return std::ssize(actions_);
}

t_MenuAction MenuActionList::operator[](std::int64_t index) const {
    const std::lock_guard lock(mutex_);
    if (index < 0 || index >= std::ssize(actions_)) return {};
    return actions_[static_cast<std::size_t>(index)];
}

std::int64_t MenuActionList::IndexOf(std::int64_t tag) const {
    if (tag == 0) return -1;
    const std::lock_guard lock(mutex_);
    const auto found = std::ranges::find(actions_, tag, &t_MenuAction::Tag);
    return found == actions_.end() ? -1 : found - actions_.begin();
}

void MenuActionList::SetFile(std::int64_t index, std::string path, std::string name) {
    const std::lock_guard lock(mutex_);
    if (index < 0 || index >= std::ssize(actions_)) return;
    t_MenuAction& action = actions_[static_cast<std::size_t>(index)];
    action.FilePath = std::move(path);
    action.FileName = std::move(name);
}

void MenuActionList::Clear() {
    const std::lock_guard lock(mutex_);
    actions_.clear();
}

}  // namespace toolkit
