#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>

#include "toolkit/core/clock.h"
#include "toolkit/core/shared.h"

namespace toolkit {

/// Events, first in first out, appended and taken on different threads. Every operation is one step
/// with respect to the others, the flag included. Any thread. They wait as `Kept`, which converts
/// from and to an event.
template <typename Event, typename Kept = Event>
class EventQueue {
  public:
    /// `pending` is kept true exactly while there are events.
    explicit EventQueue(Shared<bool>& pending) : pending_(pending) {}

    /// Wakes those who wait for an event.
    void Append(Event event) {
        {
            const std::lock_guard lock(mutex_);
            events_.emplace_back(std::move(event));
            pending_ = true;
        }
        WakeSleepers();
    }

    /// The oldest event, removed; no value when there is none.
    std::optional<Event> Take() {
        const std::lock_guard lock(mutex_);
        std::optional<Event> oldest;
        if (!events_.empty()) {
            oldest.emplace(std::move(events_.front()));
            events_.pop_front();
        }
        pending_ = !events_.empty();
        return oldest;
    }

    void Clear() {
        const std::lock_guard lock(mutex_);
        events_.clear();
        pending_ = false;
    }

    /// Drops all events when the newest one fits; whether it did.
    template <typename Fits>
    bool DropAllIfNewest(const Fits& fits) {
        const std::lock_guard lock(mutex_);
        const bool drop = !events_.empty() && fits(Event(events_.back()));
        if (drop) events_.clear();
        pending_ = !events_.empty();
        return drop;
    }

    [[nodiscard]] std::int64_t size() const {
        const std::lock_guard lock(mutex_);
        return std::ssize(events_);
    }
    [[nodiscard]] bool empty() const { return size() == 0; }

    /// Whether an event fits.
    template <typename Fits>
    [[nodiscard]] bool Any(const Fits& fits) const {
        const std::lock_guard lock(mutex_);
        return std::any_of(events_.begin(), events_.end(),
                           [&](const Kept& event) { return fits(Event(event)); });
    }

    /// A copy of the event at `position`, from 0 for the oldest; an empty record where there is
    /// none. Constant, so that what would only change the copy does not compile.
    // NOLINTNEXTLINE(readability-const-return-type)
    const Event operator[](std::int64_t position) const {
        const std::lock_guard lock(mutex_);
        if (position < 0 || position >= std::ssize(events_)) return Event();
        return events_[static_cast<std::size_t>(position)];
    }

  private:
    mutable std::mutex mutex_;
    std::deque<Kept> events_;
    Shared<bool>& pending_;
};

}  // namespace toolkit
