#include "toolkit/program/waiting.h"

#include <algorithm>

#include "platform/main_queue.h"
#include "toolkit/core/clock.h"
#include "toolkit/core/numbers.h"
#include "toolkit/events/event.h"
#include "toolkit/program/menu_choices.h"

namespace korvandi {

namespace {

constexpr std::int64_t kStep = 10;  // on the main thread, which nobody wakes

bool Has(Events kinds, Events kind) {
    return (static_cast<unsigned>(kinds) & static_cast<unsigned>(kind)) != 0;
}

bool IsPending(Events kinds) {
    return (Has(kinds, Events::Keys) && t_EventPending) ||
           (Has(kinds, Events::Clicks) && t_MouseEventPending) ||
           (Has(kinds, Events::MenuChoices) && toolkit::menuChoicePending);
}

}  // namespace

std::int64_t Milliseconds() {
    return toolkit::Milliseconds();
}

void Pause(std::int64_t milliseconds) {
    const std::int64_t end = toolkit::Plus(Milliseconds(), milliseconds);
    if (!platform::OnMain()) {
        toolkit::SleepSeconds(static_cast<double>(milliseconds) / 1000.0);
        return;
    }
    for (std::int64_t left = milliseconds; left > 0; left = end - Milliseconds()) {
        toolkit::WaitMilliseconds(std::min(left, kStep));
    }
}

bool WaitForEvent(std::int64_t milliseconds, Events kinds) {
    const auto pending = [kinds] { return IsPending(kinds); };
    const std::int64_t end = toolkit::Plus(Milliseconds(), milliseconds);
    for (std::int64_t left = milliseconds; left > 0 && !pending(); left = end - Milliseconds()) {
        toolkit::WaitMilliseconds(platform::OnMain() ? std::min(left, kStep) : left, pending);
    }
    return pending();
}

}  // namespace korvandi
