#include "platform/desktop/machine.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/random.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <climits>
#include <ctime>
#include <filesystem>
#include <system_error>

namespace platform::desktop {

namespace {

constexpr double kNanosecondsPerSecond = 1e9;
constexpr double kSecondsFrom1970To2001 = 978307200;

double Seconds(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) +
           static_cast<double>(time.tv_nsec) / kNanosecondsPerSecond;
}

/// xoshiro256**, a generator of David Blackman and Sebastiano Vigna (public domain).
class Generator {
  public:
    Generator() {
        std::size_t filled = 0;
        auto* const bytes = reinterpret_cast<unsigned char*>(state_);
        while (filled < sizeof state_) {
            const ssize_t got = getrandom(bytes + filled, sizeof state_ - filled, 0);
            if (got > 0) filled += static_cast<std::size_t>(got);
            if (got < 0 && errno != EINTR) break;
        }
        state_[0] |= 1U;  // the state must not be zero throughout
    }

    std::uint64_t Next() {
        const std::uint64_t result = std::rotl(state_[1] * 5, 7) * 9;
        const std::uint64_t shifted = state_[1] << 17U;
        state_[2] ^= state_[0];
        state_[3] ^= state_[1];
        state_[1] ^= state_[2];
        state_[0] ^= state_[3];
        state_[2] ^= shifted;
        state_[3] = std::rotl(state_[3], 45);
        return result;
    }

  private:
    std::uint64_t state_[4] = {};
};

std::filesystem::path ProgramFolder() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::filesystem::path(".") : program.parent_path();
}

// The build tree keeps the resources beside the program, an installation in the shared data.
std::string ResourceFolder(const std::filesystem::path& programFolder) {
    std::error_code error;
    std::filesystem::path beside = programFolder / "resources";
    if (std::filesystem::is_directory(beside, error)) return beside;
    return (programFolder / ".." / "share" / "korvandi").lexically_normal();
}

}  // namespace

MachineClock::MachineClock()
    : start_(Seconds(CLOCK_REALTIME) - kSecondsFrom1970To2001 - Seconds(CLOCK_BOOTTIME)) {}

double MachineClock::Now() {
    return start_ + Seconds(CLOCK_BOOTTIME);
}

void MachineClock::Sleep(std::chrono::nanoseconds duration) {
    if (duration.count() <= 0) return;
    constexpr std::int64_t kPerSecond = 1'000'000'000;
    timespec until{};
    clock_gettime(CLOCK_MONOTONIC, &until);
    const std::int64_t nanoseconds = until.tv_nsec + duration.count() % kPerSecond;
    until.tv_sec += duration.count() / kPerSecond + nanoseconds / kPerSecond;
    until.tv_nsec = nanoseconds % kPerSecond;
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr) == EINTR) continue;
}

std::uint32_t MachineRandomness::Next() {
    thread_local Generator generator;
    return static_cast<std::uint32_t>(generator.Next() >> 32U);
}

bool StandardOutput::WaitForRoom() {
    constexpr int kPatienceMs = 200;
    pollfd output{STDOUT_FILENO, POLLOUT, 0};
    int ready = 0;
    do {
        ready = poll(&output, 1, stalled_ ? 0 : kPatienceMs);
    } while (ready < 0 && errno == EINTR);
    stalled_ = ready == 0;
    return ready > 0;
}

void StandardOutput::Write(std::string_view text) {
    const std::lock_guard lock(mutex_);
    while (!text.empty() && WaitForRoom()) {
        // A pipe that is ready takes this much without making the writer wait, and in one piece.
        const ssize_t written =
            write(STDOUT_FILENO, text.data(), std::min<std::size_t>(text.size(), PIPE_BUF));
        if (written >= 0) text.remove_prefix(static_cast<std::size_t>(written));
        if (written < 0 && errno != EINTR && errno != EAGAIN) return;
    }
}

ProgramFolders::ProgramFolders(std::string_view applicationName) {
    const std::filesystem::path folder = ProgramFolder();
    bundle_ = (folder / (std::string(applicationName) + ".app")).string();
    directory_ = ResourceFolder(folder);
}

FileContent ProgramFolders::ReadFile(const std::string& path) {
    return ReadFileFromDisk(path);
}

void OpenStandardDescriptors() {
    int descriptor = 0;
    do {
        descriptor = open("/dev/null", O_RDWR);
    } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor > STDERR_FILENO) close(descriptor);
}

}  // namespace platform::desktop
