#include "platform/platform.h"

#include <unistd.h>

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

void Application::Leave() {
    _exit(0);
}

}  // namespace platform
