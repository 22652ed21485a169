#include "toolkit/core/clock.h"

#include <algorithm>
#include <chrono>

#include "platform/platform.h"
#include "toolkit/core/numbers.h"

namespace toolkit {

namespace {

constexpr std::int64_t kLongestSleep = 1'000'000'000;  // seconds; fits into nanoseconds

}  // namespace

std::int64_t Milliseconds() {
    return Truncated(platform::Current().Time->Now() * 1000.0);
}

std::int64_t Microseconds() {
    return Truncated(platform::Current().Time->Now() * 1'000'000.0);
}

void SleepMilliseconds(std::int64_t duration) {
    platform::Current().Time->Sleep(std::chrono::milliseconds(duration));
}

void WaitMilliseconds(std::int64_t duration) {
    if (platform::OnMain()) {
        platform::Current().App->Serve(std::chrono::milliseconds(duration));
    } else {
        SleepMilliseconds(duration);
    }
}

void SleepSeconds(double duration) {
    if (!(duration > 0)) return;
    const std::int64_t whole = std::min(Truncated(duration), kLongestSleep);
    const std::int64_t fraction =
        Truncated((duration - static_cast<double>(Truncated(duration))) * 1e9);
    platform::Current().Time->Sleep(std::chrono::seconds(whole) +
                                    std::chrono::nanoseconds(fraction));
}

}  // namespace toolkit
