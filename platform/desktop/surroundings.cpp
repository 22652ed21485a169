#include "platform/desktop/surroundings.h"

#include <poll.h>
#include <pthread.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "platform/application.h"

namespace platform::desktop {

namespace {

// Display, queue, signals and files.
constexpr std::size_t kDescriptorsNeeded = 12;

// Of the window library: one reads the display's events, one talks to the session bus.
constexpr std::size_t kThreadsNeeded = 2;
// Besides these: the program, its refresh, sounds, the memory that is made ahead.
constexpr std::size_t kThreadsWanted = kThreadsNeeded + 4;

bool threadsAreScarce = false;

void RequireDescriptors() {
    std::vector<int> made;
    while (made.size() < kDescriptorsNeeded) {
        made.push_back(dup(STDIN_FILENO));
        if (made.back() < 0) GiveUp();
    }
    std::ranges::for_each(made, close);
}

// How many threads can run at once beside this one, `kThreadsWanted` at most; errno tells why there
// are no more.
std::size_t ThreadsToBeHad() {
    static pthread_mutex_t gate = PTHREAD_MUTEX_INITIALIZER;
    pthread_mutex_lock(&gate);
    const auto waitAtGate = [](void* /*unused*/) -> void* {
        pthread_mutex_lock(&gate);
        pthread_mutex_unlock(&gate);
        return nullptr;
    };
    std::vector<pthread_t> threads;
    int error = 0;
    while (threads.size() < kThreadsWanted && error == 0) {
        pthread_t thread{};
        error = pthread_create(&thread, nullptr, waitAtGate, nullptr);
        if (error == 0) threads.push_back(thread);
    }
    pthread_mutex_unlock(&gate);
    for (const pthread_t thread : threads) pthread_join(thread, nullptr);
    errno = error;
    return threads.size();
}

constexpr const char* kBusVariable = "DBUS_SESSION_BUS_ADDRESS";
constexpr int kBusPatienceMs = 100;

std::string NameOfBus() {
    if (const char* const named = std::getenv(kBusVariable); named != nullptr) return named;
    const char* const folder = std::getenv("XDG_RUNTIME_DIR");
    if (folder == nullptr) return {};
    std::string name("unix:path=");
    return name.append(folder).append("/bus");
}

// The bus's address as a socket's; no length for a bus that is not named or of another kind.
socklen_t BusAddress(sockaddr_un& address) {
    std::string text = NameOfBus();
    text.resize(std::min(text.find_first_of(",;"), text.size()));
    constexpr std::string_view kPath = "unix:path=";
    constexpr std::string_view kAbstract = "unix:abstract=";
    const bool abstract = text.starts_with(kAbstract);
    if (!abstract && !text.starts_with(kPath)) return 0;
    const std::string_view name =
        std::string_view(text).substr(abstract ? kAbstract.size() : kPath.size());
    if (name.size() + 1 >= sizeof address.sun_path) return 0;
    address.sun_family = AF_UNIX;
    // A zero stands before the name of an abstract socket, and behind the others.
    std::ranges::copy(name, address.sun_path + (abstract ? 1 : 0));
    return static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size() + 1);
}

// The first words of the bus's protocol: who asks, by the user's number in decimal digits, each as
// its code in hexadecimal.
std::string Hello() {
    std::string hello(1, '\0');
    hello.append("AUTH EXTERNAL ");
    for (const char digit : std::to_string(getuid())) {
        hello += '3';
        hello += digit;
    }
    return hello.append("\r\n");
}

}  // namespace

void GiveUp() {
    std::printf("The program could not be started: %s.\n", std::strerror(errno));
    std::fflush(stdout);
    Application::Leave(1);
}

void RequireDescriptorsAndThreads() {
    RequireDescriptors();
    const std::size_t threads = ThreadsToBeHad();
    if (threads < kThreadsNeeded) GiveUp();
    threadsAreScarce = threads < kThreadsWanted;
}

bool ThreadsAreScarce() {
    return threadsAreScarce;
}

SessionBus::SessionBus() {
    sockaddr_un address{};
    const socklen_t length = BusAddress(address);
    if (length == 0) return;
    socket_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket_ < 0) return;
    const std::string hello = Hello();
    if (connect(socket_, reinterpret_cast<const sockaddr*>(&address), length) == 0) {
        static_cast<void>(!send(socket_, hello.data(), hello.size(), MSG_NOSIGNAL));
    } else if (errno != EAGAIN) {
        close(socket_);  // nobody listens: the window library finds that out at once, too
        socket_ = -1;
    }
}

SessionBus::~SessionBus() {
    if (socket_ >= 0) close(socket_);
}

void SessionBus::LeaveOutUnlessAlive() {
    if (socket_ < 0 || Answers()) return;
    std::puts("The session bus does not answer; going on without it.");
    std::fflush(stdout);
    setenv(kBusVariable, "unix:path=/dev/null", 1);
}

bool SessionBus::Answers() const {
    pollfd answer{socket_, POLLIN, 0};
    return poll(&answer, 1, kBusPatienceMs) > 0 && (answer.revents & POLLIN) != 0;
}

}  // namespace platform::desktop
