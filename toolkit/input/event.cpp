#include "toolkit/input/event.h"

#include <optional>
#include <utility>

constinit toolkit::Shared<bool> t_EventPending;
constinit toolkit::Shared<bool> t_MouseEventPending;
toolkit::EventQueue<t_Event>& t_EventQueue = *new toolkit::EventQueue<t_Event>(t_EventPending);
toolkit::EventQueue<t_Event>& t_MouseEventQueue =
    *new toolkit::EventQueue<t_Event>(t_MouseEventPending);
t_Event& t_CurrentEvent = *new t_Event;

std::int64_t t_NextEvent() {
    if (!t_EventPending) return -1;
    std::optional<t_Event> event = t_EventQueue.Take();
    if (!event) return -1;
    t_CurrentEvent = std::move(*event);
    return t_CurrentEvent.Value;
}
