#pragma once

#include <atomic>

// Values that one thread writes and others read at the same time.

namespace toolkit {

/// A plain value that one thread writes and others poll. Copies like the value it holds, so a
/// record with such a field stays a plain value. A store publishes what was written before it.
template <typename T>
class Shared {
  public:
    constexpr Shared(T value = T{}) : value_(value) {}
    Shared(const Shared& other) : value_(T(other)) {}
    ~Shared() = default;
    Shared& operator=(const Shared& other) {
        *this = T(other);
        return *this;
    }
    Shared& operator=(T value) {
        value_.store(value, std::memory_order_release);
        return *this;
    }
    operator T() const { return value_.load(std::memory_order_acquire); }

    /// Stores `value` and returns what was there, in one step.
    T Exchange(T value) { return value_.exchange(value, std::memory_order_acq_rel); }

  private:
    std::atomic<T> value_;
};

}  // namespace toolkit
