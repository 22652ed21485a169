#include "platform/platform.h"

#include <unistd.h>

#ifdef KORVANDI_COVERAGE
extern "C" void __gcov_dump();
#endif

namespace platform {

namespace {

constinit Platform installed;

}  // namespace

void Install(const Platform& platform) {
    installed = platform;
}

const Platform& Current() {
    return installed;
}

void Application::Leave(int status) {
#ifdef KORVANDI_COVERAGE
    __gcov_dump();  // otherwise done by what _exit leaves out
#endif
    _exit(status);
}

}  // namespace platform
