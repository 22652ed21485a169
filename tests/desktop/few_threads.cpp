#include <dlfcn.h>
#include <pthread.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <new>
#include <thread>

// Preloaded into a program: no more threads than KORVANDI_THREADS says can run beside the main
// thread at a time. A thread that is about to end does not count: whoever wants another one waits
// a moment for that.

namespace {

std::atomic<int> running = 0;

struct Leaving {
    ~Leaving() { --running; }
};

bool TakePlace() {
    static const char* const most = std::getenv("KORVANDI_THREADS");
    static const int places = most == nullptr ? 0 : std::atoi(most);
    constexpr int kPatienceMs = 250;
    for (int waited = 0; waited < kPatienceMs && places > 0; ++waited) {
        if (++running <= places) return true;
        --running;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return false;
}

struct Start {
    void* (*Body)(void*);
    void* Argument;
};

void* Run(void* start) {
    const std::unique_ptr<Start> taken(static_cast<Start*>(start));
    const Leaving leaving;
    return taken->Body(taken->Argument);
}

}  // namespace

extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                              void* (*body)(void*), void* argument) {
    using Create = int (*)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
    static const auto create = reinterpret_cast<Create>(dlsym(RTLD_NEXT, "pthread_create"));
    auto start = std::unique_ptr<Start>(new (std::nothrow) Start{body, argument});
    if (start == nullptr || !TakePlace()) return EAGAIN;
    return create(thread, attributes, Run, start.release());
}
