#include "platform/desktop/main_clock.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QApplication>

#include "platform/desktop/desk.h"
#include "platform/desktop/host_window.h"
#include "platform/main_queue.h"

namespace platform::desktop {

namespace {

// The event loop would look for the accessibility service when it starts, and the first window make
// its widgets when it is shown; both with a person waiting.
void Prepare() {
    QAccessible::setRootObject(qApp);
    if (!TheDesk().Windows.empty()) TheDesk().Windows.front()->Prepare();
}

}  // namespace

void MainClock::Sleep(std::chrono::nanoseconds duration) {
    // Asked in this order, a pause of another thread takes no lock once the program runs.
    if (!prepared_ && OnMain()) {
        prepared_ = true;
        const auto start = std::chrono::steady_clock::now();
        Prepare();
        duration -= std::chrono::steady_clock::now() - start;
    }
    MachineClock::Sleep(duration);
}

}  // namespace platform::desktop
