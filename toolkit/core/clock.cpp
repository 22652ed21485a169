#include "toolkit/core/clock.h"

#include <algorithm>
#include <chrono>

#include "platform/platform.h"
#include "toolkit/core/numbers.h"

namespace {

constexpr std::int64_t kLongestSleep = 1'000'000'000;  // seconds; fits into nanoseconds

}  // namespace

namespace toolkit {

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

void SleepSeconds(double seconds) {
    if (!(seconds > 0)) return;
    const std::int64_t whole = Truncated(seconds);
    const std::int64_t fraction = Truncated((seconds - static_cast<double>(whole)) * 1e9);
    platform::Current().Clock->Sleep(std::chrono::seconds(std::min(whole, kLongestSleep)) +
                                     std::chrono::nanoseconds(fraction));
}

}  // namespace toolkit
