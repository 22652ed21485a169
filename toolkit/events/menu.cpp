#include "toolkit/events/menu.h"

#include <cstddef>
#include <utility>

#include "platform/search.h"

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

// NOLINTNEXTLINE(readability-const-return-type)
const t_MenuAction MenuActionList::operator[](std::int64_t index) const {
    const std::lock_guard lock(mutex_);
    return Has(index) ? actions_[static_cast<std::size_t>(index)] : t_MenuAction();
}

void MenuActionList::Change(std::int64_t index, const std::function<void(t_MenuAction&)>& change) {
    const std::lock_guard lock(mutex_);
    if (Has(index)) change(actions_[static_cast<std::size_t>(index)]);
}

void MenuActionList::erase(std::int64_t index) {
    const std::lock_guard lock(mutex_);
    if (Has(index)) actions_.erase(actions_.begin() + static_cast<std::ptrdiff_t>(index));
}

std::int64_t MenuActionList::IndexOf(std::int64_t tag) const {
    if (tag == 0) return -1;
    const std::lock_guard lock(mutex_);
    const t_MenuAction* const found = platform::RowWith(actions_, &t_MenuAction::Tag, tag);
    return found == nullptr ? -1 : found - actions_.data();
}

void MenuActionList::SetFile(std::int64_t index, std::string path, std::string name) {
    Change(index, [&](t_MenuAction& action) {
        action.FilePath = std::move(path);
        action.FileName = std::move(name);
    });
}

void MenuActionList::Clear() {
    const std::lock_guard lock(mutex_);
    actions_.clear();
}

}  // namespace toolkit

std::int64_t t_MenuActionIndex(std::int64_t tag) {
    return t_MenuActions.IndexOf(tag);
}
