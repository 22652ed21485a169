#include <dlfcn.h>
#include <pthread.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <new>

// Preloaded into a program: no more threads than KORVANDI_THREADS says can run beside the main
// thread at a time.

namespace {

std::atomic<int> running = 0;

struct Leaving {
    ~Leaving() { --running; }
};

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
    static const char* const most = std::getenv("KORVANDI_THREADS");
    auto start = std::unique_ptr<Start>(new (std::nothrow) Start{body, argument});
    if (++running > (most == nullptr ? 0 : std::atoi(most)) || start == nullptr) {
        --running;
        return EAGAIN;
    }
    return create(thread, attributes, Run, start.release());
}
