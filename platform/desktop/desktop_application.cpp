#include "platform/desktop/desktop_application.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <QtCore/QSocketNotifier>
#include <QtWidgets/QApplication>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>

#include "platform/desktop/desk.h"
#include "platform/desktop/host_window.h"
#include "platform/main_queue.h"

namespace platform::desktop {

namespace {

// The main thread ends the application when this becomes readable.
int endAsked = -1;

// Any thread, also inside a signal handler.
void AskForEnd() {
    const int error = errno;
    const std::uint64_t one = 1;
    while (write(endAsked, &one, sizeof one) < 0 && errno == EINTR) continue;
    errno = error;
}

void OnSignal(int /*signal*/) {
    AskForEnd();
}

// A signal that the program was started to ignore stays ignored.
void Catch(int signal) {
    struct sigaction now {};
    sigaction(signal, nullptr, &now);
    if (now.sa_handler == SIG_IGN) return;
    struct sigaction action {};
    action.sa_handler = OnSignal;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

[[noreturn]] void End() {
    Desk& desk = TheDesk();
    if (!desk.Ending) {
        desk.Ending = true;
        TheMainQueue().Close();
        desk.Client->applicationWillTerminate();
    }
    Application::Leave();
}

// The window library leaves the process by itself when the display goes away.
void EndAtExit() {
    End();
}

void TellActivity(Qt::ApplicationState state) {
    static bool active = false;
    const bool now = state == Qt::ApplicationActive;
    if (now == active || TheDesk().Ending) return;
    active = now;
    if (active) TheDesk().Client->applicationDidBecomeActive();
    if (!active) TheDesk().Client->applicationWillResignActive();
}

}  // namespace

DesktopApplication::DesktopApplication() {
    endAsked = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) Catch(signal);
}

void DesktopApplication::Run(ApplicationClient& client) {
    TheDesk().Client = &client;
    std::atexit(EndAtExit);
    TheDesk().Above.Measure();
    client.applicationWillFinishLaunching();
    client.applicationDidFinishLaunching();
    QObject::connect(qGuiApp, &QGuiApplication::applicationStateChanged, TellActivity);
    const QSocketNotifier notifier(endAsked, QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, [] { End(); });
    QApplication::exec();
    End();
}

void DesktopApplication::Terminate() {
    AskForEnd();
}

Window* DesktopApplication::MainWindow() {
    if (QGuiApplication::applicationState() != Qt::ApplicationActive) return nullptr;
    return HostWindow::LastActive();
}

}  // namespace platform::desktop
