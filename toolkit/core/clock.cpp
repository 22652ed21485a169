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
    return Truncated(platform::Current().Clock->Now() * 1000.0);
}

std::int64_t Microseconds() {
    return Truncated(platform::Current().Clock->Now() * 1'000'000.0);
}

void SleepMilliseconds(std::int64_t duration) {
    platform::Current().Clock->Sleep(std::chrono::milliseconds(duration));
}

void SleepAbout(std::int64_t duration, std::int64_t slack) {
    platform::Current().Clock->SleepAbout(std::chrono::milliseconds(duration),
                                          std::chrono::milliseconds(slack));
}

void WakeSleepers() {
    platform::Current().Clock->Wake();
}

void WaitMilliseconds(std::int64_t duration, const std::function<bool()>& done) {
    if (platform::OnMain()) {
        platform::Current().Application->Serve(std::chrono::milliseconds(duration));
    } else if (done) {
        platform::Current().Clock->SleepUnless(std::chrono::milliseconds(duration), done);
    } else {
        SleepMilliseconds(duration);
    }
}

void SleepSeconds(double duration) {
    if (!(duration > 0)) return;
    const std::int64_t whole = std::min(Truncated(duration), kLongestSleep);
    const std::int64_t fraction =
        Truncated((duration - static_cast<double>(Truncated(duration))) * 1e9);
    platform::Current().Clock->Sleep(std::chrono::seconds(whole) +
                                     std::chrono::nanoseconds(fraction));
}

}  // namespace toolkit
