#include <dlfcn.h>
#include <sys/time.h>
#include <unistd.h>

#include <ctime>
#include <string_view>

// Stands in front of the C library: soon after the start of the process the clock on the wall is an
// hour slow, and a line on standard output says so.

namespace {

using ClockGetTime = int (*)(clockid_t, timespec*);

constexpr std::string_view kLine = "clock: set back\n";
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
    if (now.tv_sec - start <= kBefore) return false;
    static const ssize_t told = write(STDOUT_FILENO, kLine.data(), kLine.size());
    return told > 0;
}

}  // namespace

extern "C" int clock_gettime(clockid_t clock, timespec* time) {
    const int result = RealTime(clock, time);
    const bool isSetBack = IsSetBack();
    if (clock == CLOCK_REALTIME && isSetBack) time->tv_sec -= kBack;
    return result;
}

extern "C" int gettimeofday(timeval* time, void* /*zone*/) noexcept {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    *time = {now.tv_sec, now.tv_nsec / 1000};
    return 0;
}
