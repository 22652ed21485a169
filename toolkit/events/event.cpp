#include "toolkit/events/event.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <optional>
#include <utility>

#include "toolkit/core/clock.h"
#include "toolkit/core/utf8.h"

constinit toolkit::Shared<bool> t_EventPending;
constinit toolkit::Shared<bool> t_MouseEventPending;
toolkit::InputQueue& t_EventQueue = *new toolkit::InputQueue(t_EventPending);
toolkit::InputQueue& t_MouseEventQueue = *new toolkit::InputQueue(t_MouseEventPending);
t_Event& t_CurrentEvent = *new t_Event;

namespace {

// The fields that are packed alike.
constexpr std::int64_t t_Event::*kNumberFields[] = {&t_Event::Index,   &t_Event::Value,
                                                    &t_Event::WindowX, &t_Event::WindowY,
                                                    &t_Event::ClickX,  &t_Event::ClickY};
constexpr bool t_Event::*kFlagFields[] = {
    &t_Event::CloseBox,          &t_Event::CapsLockPressed,   &t_Event::ShiftPressed,
    &t_Event::ControlPressed,    &t_Event::OptionPressed,     &t_Event::CommandPressed,
    &t_Event::NumericPadPressed, &t_Event::HelpPressed,       &t_Event::FnPressed,
    &t_Event::CursorKeyPressed,  &t_Event::FunctionKeyPressed};

template <typename T>
bool Fits(std::int64_t number) {
    return number >= std::numeric_limits<T>::min() && number <= std::numeric_limits<T>::max();
}

}  // namespace

namespace toolkit {

static_assert(sizeof(QueuedEvent) <= 56);  // with what a queue adds, 64 bytes

bool QueuedEvent::IsSmall(const t_Event& event) {
    return event.Description.size() <= kMostCharacters && Fits<std::uint8_t>(event.Kind) &&
           Fits<std::uint16_t>(event.Mods) &&
           std::all_of(std::begin(kNumberFields), std::end(kNumberFields),
                       [&event](auto field) { return Fits<std::int32_t>(event.*field); });
}

QueuedEvent::QueuedEvent(t_Event event) {
    static_assert(std::size(kNumberFields) == kNumbers);
    if (!IsSmall(event)) {
        whole_ = std::make_unique<const t_Event>(std::move(event));
        return;
    }
    time_ = event.Time;
    std::transform(std::begin(kNumberFields), std::end(kNumberFields), numbers_.begin(),
                   [&event](auto field) { return static_cast<std::int32_t>(event.*field); });
    mods_ = static_cast<std::uint16_t>(event.Mods);
    for (std::size_t i = 0; i < std::size(kFlagFields); ++i) {
        if (event.*kFlagFields[i]) flags_ = static_cast<std::uint16_t>(flags_ | 1U << i);
    }
    kind_ = static_cast<std::uint8_t>(event.Kind);
    window_ = event.Window;
    length_ =
        static_cast<std::uint8_t>(event.Description.copy(description_.data(), kMostCharacters));
}

QueuedEvent::operator t_Event() const {
    if (whole_ != nullptr) return *whole_;
    t_Event event;
    event.Kind = kind_;
    event.Description.assign(description_.data(), length_);
    for (std::size_t i = 0; i < kNumbers; ++i) event.*kNumberFields[i] = numbers_[i];
    event.Mods = mods_;
    event.Window = window_;
    event.Time = time_;
    for (std::size_t i = 0; i < std::size(kFlagFields); ++i) {
        event.*kFlagFields[i] = (flags_ >> i & 1U) != 0;
    }
    return event;
}

}  // namespace toolkit

std::int64_t t_NextEvent() {
    if (!t_EventPending) return -1;
    std::optional<t_Event> event = t_EventQueue.Take();
    if (!event) return -1;
    t_CurrentEvent = std::move(*event);
    return t_CurrentEvent.Value;
}

void t_QueueKeys(std::string_view string) {
    for (const char32_t c : toolkit::Characters(string)) {
        t_Event event;
        event.Kind = 1;
        event.Description = toolkit::CharacterString(c);
        event.Value = c;
        event.Window = 1;
        event.Time = toolkit::Milliseconds();
        t_EventQueue.Append(std::move(event));
    }
}
