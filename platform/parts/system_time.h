#pragma once

#include <cstdint>
#include <ctime>

namespace platform::parts {

/// A time or a duration as the system takes it; `nanoseconds` is below a second. Any thread.
[[nodiscard]] inline timespec SystemTime(std::int64_t seconds, std::int64_t nanoseconds) {
    return {static_cast<decltype(timespec::tv_sec)>(seconds),
            static_cast<decltype(timespec::tv_nsec)>(nanoseconds)};
}

}  // namespace platform::parts
