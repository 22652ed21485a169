#include "platform/parts/machine.h"

#include <sys/prctl.h>
#include <sys/random.h>

#include <array>
#include <cerrno>
#include <ctime>
#include <random>

#include "platform/parts/system_time.h"

namespace platform::parts {

namespace {

constexpr double kNanosecondsPerSecond = 1e9;
constexpr double kSecondsFrom1970To2001 = 978307200;

double Seconds(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) +
           static_cast<double>(time.tv_nsec) / kNanosecondsPerSecond;
}

std::mt19937 SeededGenerator() {
    std::array<std::uint32_t, 8> seed{};
    while (getrandom(seed.data(), sizeof seed, 0) < 0 && errno == EINTR) continue;
    std::seed_seq sequence(seed.begin(), seed.end());
    return std::mt19937(sequence);
}

/// Lets the thread's pauses end so much later, together with whatever else wakes the machine.
class Slack {
  public:
    explicit Slack(std::chrono::nanoseconds slack)
        : set_(slack.count() > 0 &&
               prctl(PR_SET_TIMERSLACK, static_cast<unsigned long>(slack.count())) == 0) {}
    ~Slack() {
        if (set_) prctl(PR_SET_TIMERSLACK, kAsStarted);
    }
    Slack(const Slack&) = delete;
    Slack& operator=(const Slack&) = delete;

  private:
    static constexpr unsigned long kAsStarted = 0;  // what the thread had from the beginning
    bool set_;
};

}  // namespace

MachineClock::MachineClock()
    : start_(Seconds(CLOCK_REALTIME) - kSecondsFrom1970To2001 - Seconds(CLOCK_BOOTTIME)) {}

double MachineClock::Now() {
    return start_ + Seconds(CLOCK_BOOTTIME);
}

void MachineClock::Sleep(std::chrono::nanoseconds duration) {
    if (duration.count() <= 0) return;
    constexpr std::int64_t kPerSecond = 1'000'000'000;
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const std::int64_t nanoseconds = now.tv_nsec + duration.count() % kPerSecond;
    const timespec until =
        SystemTime(now.tv_sec + duration.count() / kPerSecond + nanoseconds / kPerSecond,
                   nanoseconds % kPerSecond);
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr) == EINTR) continue;
}

void MachineClock::SleepAbout(std::chrono::nanoseconds duration, std::chrono::nanoseconds slack) {
    const Slack late(slack);
    Sleep(duration);
}

// Nobody misses the end of the pause: what it waits for ends it.
void MachineClock::SleepUnless(std::chrono::nanoseconds duration,
                               const std::function<bool()>& done) {
    const Slack late(duration);
    std::unique_lock lock(sleepers_);
    wake_.wait_for(lock, duration, done);
}

// The mutex is taken so that nobody falls asleep between a look and this call.
void MachineClock::Wake() {
    { const std::lock_guard lock(sleepers_); }
    wake_.notify_all();
}

std::uint32_t MachineRandomness::Next() {
    thread_local std::mt19937 generator = SeededGenerator();
    return static_cast<std::uint32_t>(generator());
}

ProgramFolders::ProgramFolders(std::string_view applicationName)
    : bundle_(ProgramFolder() + "/" + std::string(applicationName) + ".app"),
      resources_(FindResourceFolder()) {}

FileContent ProgramFolders::ReadFile(const std::string& path) {
    return ReadFileFromDisk(path);
}

}  // namespace platform::parts
