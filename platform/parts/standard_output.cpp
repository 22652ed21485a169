#include "platform/parts/standard_output.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <csignal>
#include <ctime>

#include "platform/parts/system_time.h"

namespace platform::parts {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds kPatience{200};
constexpr milliseconds kBetweenTries{100};

// A pipe with room takes PIPE_BUF bytes, a file everything. A terminal says that it has room for as
// little as a byte, and then keeps the writer until its reader has taken the rest.
bool RoomIsPromised() {
    struct stat output {};
    return fstat(STDOUT_FILENO, &output) == 0 &&
           (S_ISFIFO(output.st_mode) || S_ISREG(output.st_mode));
}

int InterruptSignal() {
    return SIGRTMAX - 1;
}

/// Interrupts the calling thread's system call from a point in time on, again and again until it is
/// destroyed: the call may begin after that point.
class Interruption {
  public:
    explicit Interruption(steady_clock::time_point from) {
        sigevent event{};
        event.sigev_notify = SIGEV_THREAD_ID;
        event.sigev_signo = InterruptSignal();
        event._sigev_un._tid = gettid();
        made_ = timer_create(CLOCK_MONOTONIC, &event, &timer_) == 0;
        if (!made_) return;
        constexpr std::int64_t kAgain = 5'000'000;  // nanoseconds
        const std::int64_t first =
            std::max<std::int64_t>((from - steady_clock::now()) / std::chrono::nanoseconds(1), 1);
        constexpr std::int64_t kSecond = 1'000'000'000;
        const itimerspec times{.it_interval = SystemTime(0, kAgain),
                               .it_value = SystemTime(first / kSecond, first % kSecond)};
        timer_settime(timer_, 0, &times, nullptr);
    }
    ~Interruption() {
        if (made_) timer_delete(timer_);
    }
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

  private:
    timer_t timer_{};
    bool made_ = false;
};

// As write, but returns when the time is over.
ssize_t WriteUntil(std::string_view piece, steady_clock::time_point until) {
    const Interruption interruption(until);
    return write(STDOUT_FILENO, piece.data(), piece.size());
}

}  // namespace

StandardOutput::StandardOutput() : roomIsPromised_(RoomIsPromised()) {
    struct sigaction action {};
    action.sa_handler = [](int /*signal*/) {};
    sigaction(InterruptSignal(), &action, nullptr);  // without SA_RESTART: the call is left
}

bool StandardOutput::WaitForRoom(steady_clock::time_point until) const {
    pollfd output{STDOUT_FILENO, POLLOUT, 0};
    int ready = 0;
    do {
        const auto left = std::chrono::ceil<milliseconds>(until - steady_clock::now());
        ready = poll(&output, 1, static_cast<int>(std::max<std::int64_t>(left.count(), 0)));
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

void StandardOutput::Stall(steady_clock::time_point now) {
    stalled_ = true;
    if (!roomIsPromised_) nextTry_ = now + kBetweenTries;
}

void StandardOutput::Write(std::string_view text) {
    const std::lock_guard lock(mutex_);
    const auto now = steady_clock::now();
    if (stalled_ && now < nextTry_) return;
    const auto until = stalled_ ? now : now + kPatience;
    while (!text.empty()) {
        if (!WaitForRoom(until)) return Stall(now);
        const std::string_view piece = text.substr(0, PIPE_BUF);
        const ssize_t written = roomIsPromised_ ? write(STDOUT_FILENO, piece.data(), piece.size())
                                                : WriteUntil(piece, until);
        if (written >= 0) text.remove_prefix(static_cast<std::size_t>(written));
        if (written < 0 && errno != EINTR && errno != EAGAIN) return;
        if (written < 0 && steady_clock::now() >= until) return Stall(steady_clock::now());
    }
    stalled_ = false;
}

void OpenStandardDescriptors() {
    int descriptor = 0;
    do {
        descriptor = open("/dev/null", O_RDWR);
    } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor > STDERR_FILENO) close(descriptor);
}

}  // namespace platform::parts
