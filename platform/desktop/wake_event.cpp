#include "platform/desktop/wake_event.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>

#include "platform/desktop/surroundings.h"

namespace platform::desktop {

WakeEvent::WakeEvent() : descriptor_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (descriptor_ < 0) GiveUp();
}

void WakeEvent::Set() const {
    const int error = errno;
    const std::uint64_t one = 1;
    while (write(descriptor_, &one, sizeof one) < 0 && errno == EINTR) continue;
    errno = error;
}

void WakeEvent::Clear() const {
    std::uint64_t count = 0;
    static_cast<void>(!read(descriptor_, &count, sizeof count));
}

}  // namespace platform::desktop
