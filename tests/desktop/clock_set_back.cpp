#include <dlfcn.h>
#include <sys/time.h>

#include <ctime>

// Stands in front of the C library: from the second second of the process on, the clock on the wall
// is an hour slow.

namespace {

using ClockGetTime = int (*)(clockid_t, timespec*);

constexpr time_t kBefore = 1;
constexpr time_t kBack = 3600;

int RealTime(clockid_t clock, timespec* time) {
    static const auto real = reinterpret_cast<ClockGetTime>(dlsym(RTLD_NEXT, "clock_gettime"));
    return real(clock, time);
}

bool IsSetBack() {
    timespec now{};
    RealTime(CLOCK_MONOTONIC, &now);
    static const time_t start = now.tv_sec;
    return now.tv_sec - start > kBefore;
}

}  // namespace

extern "C" int clock_gettime(clockid_t clock, timespec* time) {
    const int result = RealTime(clock, time);
    if (clock == CLOCK_REALTIME && IsSetBack()) time->tv_sec -= kBack;
    return result;
}

extern "C" int gettimeofday(timeval* time, void* /*zone*/) noexcept {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    *time = {now.tv_sec, now.tv_nsec / 1000};
    return 0;
}
