#include "platform/thread.h"

#include <pthread.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <memory>
#include <system_error>
#include <utility>

namespace platform {

namespace {

std::atomic<std::int64_t> lastNumber = 1;
std::atomic<std::int64_t> running = 0;

struct Identity {
    std::int64_t Number = 0;
    std::string Name;
    bool Ending = false;
};

Identity& Self() {
    thread_local Identity self;
    return self;
}

// The number of the thread that runs main: it is the first to get here.
const bool mainThreadIsOne = [] {
    Self().Number = 1;
    return true;
}();

struct Start {
    std::function<void()> Body;
    std::int64_t Number = 0;
};

// Counts a thread as ended however it ends.
struct Leaving {
    ~Leaving() { --running; }
};

// A thread on its way out must never take the process with it: a noexcept function on the way ends
// in std::terminate, a catch (...) that keeps the exception in SIGABRT.
std::terminate_handler terminateBefore = nullptr;

[[noreturn]] void TerminateUnlessEnding() {
    if (Self().Ending) Park();
    terminateBefore();
    std::abort();
}

void AbortUnlessEnding(int /*signal*/) {
    if (Self().Ending) Park();
    std::signal(SIGABRT, SIG_DFL);
    std::raise(SIGABRT);
}

void GuardEndingThreads() {
    static const bool guarded = [] {
        terminateBefore = std::set_terminate(TerminateUnlessEnding);
        std::signal(SIGABRT, AbortUnlessEnding);
        return true;
    }();
    static_cast<void>(guarded);
}

auto& BackgroundStarter() {
    static auto* const start = new std::function<std::string(std::function<void()>)>;
    return *start;
}

std::size_t SmallestStack() {
    const long smallest = sysconf(_SC_THREAD_STACK_MIN);
    return smallest > 0 ? static_cast<std::size_t>(smallest) : 0;
}

void ShowName(std::string_view name) {
    constexpr std::size_t kSystemLimit = 15;
    pthread_setname_np(pthread_self(), std::string(name.substr(0, kSystemLimit)).c_str());
}

void* Run(void* argument) {
    const std::unique_ptr<Start> start(static_cast<Start*>(argument));
    const Leaving leaving;
    Self().Number = start->Number;
    // For the system a thread begins with the name of the one that made it.
    ShowName("Thread " + std::to_string(start->Number));
    start->Body();
    return nullptr;
}

}  // namespace

std::string StartThread(std::function<void()> body, std::size_t stackSize) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    int error = stackSize == 0
                    ? 0
                    : pthread_attr_setstacksize(&attributes, std::max(stackSize, SmallestStack()));
    if (error == 0) {
        auto start = std::make_unique<Start>(Start{std::move(body), ++lastNumber});
        ++running;
        pthread_t thread{};
        error = pthread_create(&thread, &attributes, Run, start.get());
        if (error == 0) {
            static_cast<void>(start.release());
        } else {
            --running;
        }
    }
    pthread_attr_destroy(&attributes);
    return error == 0 ? std::string() : std::error_code(error, std::generic_category()).message();
}

void SetBackgroundStarter(std::function<std::string(std::function<void()>)> start) {
    BackgroundStarter() = std::move(start);
}

std::string StartBackgroundTask(std::function<void()> task) {
    const auto& start = BackgroundStarter();
    return start ? start(std::move(task)) : StartThread(std::move(task), 0);
}

void NameThread(std::string_view name) {
    Self().Name = name;
    ShowName(name);
}

std::string ThreadDescription() {
    const Identity& self = Self();
    const std::string name = self.Name.empty() ? "(null)" : self.Name;
    return "<thread>{number = " + std::to_string(self.Number) + ", name = " + name + "}";
}

void EndThread() {
    GuardEndingThreads();
    Self().Ending = true;
    pthread_exit(nullptr);
}

void Park() {
    while (true) pause();
}

std::int64_t RunningThreads() {
    return running;
}

void RestartThreadNumbers() {
    lastNumber = 1;
    Self().Number = 1;
}

}  // namespace platform
