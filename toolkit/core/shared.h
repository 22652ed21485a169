#pragma once

#include <atomic>
#include <functional>
#include <type_traits>

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

    // What else changes a number, each in one step. They give the new value, not what a further
    // thread may have made of it; `++` and `--` behind it give the old one.
    T operator+=(const auto& other) { return Combine(std::plus<>(), other).After; }
    T operator-=(const auto& other) { return Combine(std::minus<>(), other).After; }
    T operator*=(const auto& other) { return Combine(std::multiplies<>(), other).After; }
    T operator/=(const auto& other) { return Combine(std::divides<>(), other).After; }
    T operator%=(const auto& other) { return Combine(std::modulus<>(), other).After; }
    T operator&=(const auto& other) { return Combine(std::bit_and<>(), other).After; }
    T operator|=(const auto& other) { return Combine(std::bit_or<>(), other).After; }
    T operator^=(const auto& other) { return Combine(std::bit_xor<>(), other).After; }
    T operator<<=(const auto& other) {
        return Combine([](T value, const auto& by) { return value << by; }, other).After;
    }
    T operator>>=(const auto& other) {
        return Combine([](T value, const auto& by) { return value >> by; }, other).After;
    }
    T operator++() { return Combine(std::plus<>(), One()).After; }
    T operator--() { return Combine(std::minus<>(), One()).After; }
    T operator++(int) { return Combine(std::plus<>(), One()).Before; }
    T operator--(int) { return Combine(std::minus<>(), One()).Before; }

  private:
    struct Step {
        T Before;
        T After;
    };

    static int One() {
        static_assert(!std::is_same_v<T, bool>, "a flag does not count");
        return 1;
    }

    template <typename Operation, typename U>
    Step Combine(const Operation& operation, const U& other) {
        static_assert(std::is_arithmetic_v<T>, "only numbers and flags have these operators");
        Step step{value_.load(std::memory_order_relaxed), {}};
        do {
            step.After = static_cast<T>(operation(step.Before, other));
        } while (!value_.compare_exchange_weak(step.Before, step.After, std::memory_order_acq_rel,
                                               std::memory_order_relaxed));
        return step;
    }

    std::atomic<T> value_;
};

}  // namespace toolkit
