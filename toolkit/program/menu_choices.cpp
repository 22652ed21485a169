#include "toolkit/program/menu_choices.h"

namespace toolkit {

constinit Shared<bool> menuChoicePending;

EventQueue<std::int64_t>& MenuChoices() {
    static auto* const choices = new EventQueue<std::int64_t>(menuChoicePending);
    return *choices;
}

}  // namespace toolkit
