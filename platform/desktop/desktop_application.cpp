#include "platform/desktop/desktop_application.h"

#include <QtGui/qguiapplication_platform.h>
#include <xcb/xcb.h>

#include <QtCore/QEventLoop>
#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <ctime>

#include "platform/desktop/desk.h"
#include "platform/desktop/host_window.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/wake_event.h"
#include "platform/main_queue.h"
#include "platform/thread.h"

namespace platform::desktop {

namespace {

// The time for an orderly end. After it the process is left as it is.
constexpr long kPatienceMs = 350;

// How long a program may take to show its first window.
constexpr int kSettledMs = 3000;

// The main thread ends the application when this becomes readable.
const WakeEvent* endAsked = nullptr;
timer_t patience{};
bool hasPatience = false;
std::atomic<int> exitStatus = 0;

void LeaveAtOnce(int /*signal*/) {
    Application::Leave(exitStatus);
}

void CatchWith(void (*handler)(int), int signal) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(signal, &action, nullptr);
}

// A timer of the process: its signal comes through on whatever thread still takes one.
void MakePatience() {
    const int signal = SIGRTMAX;
    CatchWith(LeaveAtOnce, signal);
    sigevent event{};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = signal;
    hasPatience = timer_create(CLOCK_MONOTONIC, &event, &patience) == 0;
}

// Any thread, also inside a signal handler. The first call counts for the patience.
void AskForEnd() {
    static std::atomic_flag asked;
    const int error = errno;
    if (hasPatience && !asked.test_and_set()) {
        itimerspec time{};
        time.it_value.tv_nsec = kPatienceMs * 1'000'000;
        timer_settime(patience, 0, &time, nullptr);
    }
    errno = error;
    endAsked->Set();
}

void OnSignal(int /*signal*/) {
    AskForEnd();
}

// A signal that the program was started to ignore stays ignored.
void Catch(int signal) {
    struct sigaction now {};
    sigaction(signal, nullptr, &now);
    if (now.sa_handler != SIG_IGN) CatchWith(OnSignal, signal);
}

[[noreturn]] void End(const Desk& desk) {
    if (TheMainQueue().IsOpen()) {
        TheMainQueue().Close();
        desk.Client->applicationWillTerminate();
    }
    Application::Leave(exitStatus);
}

bool DisplayIsLost() {
    const auto* const x = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x == nullptr || xcb_connection_has_error(x->connection()) != 0;
}

// Somebody called exit: the program, or the window library because the display went away, which is
// an end like any other.
void EndAtExit(int status, void* desk) {
    if (!OnMain()) {
        exitStatus = status;
        AskForEnd();
        Park();
    }
    if (!DisplayIsLost()) exitStatus = status;
    End(*static_cast<const Desk*>(desk));
}

void TellWindowsOfScreens() {
    for (HostWindow* const window : HostWindow::All()) window->ScreensDidChange();
}

void TellOfTitleBar(Desk& desk) {
    for (HostWindow* const window : HostWindow::All()) window->TitleBarDidChange();
    ApplicationClient* const client = desk.Listener();
    if (client != nullptr) client->titleBarHeightDidChange(desk.Above.Height());
}

}  // namespace

DesktopApplication::DesktopApplication(Desk& desk) : desk_(desk) {
    endAsked = new WakeEvent;  // for signal handlers, never destroyed
    MakePatience();
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) Catch(signal);
}

void DesktopApplication::Run(ApplicationClient& client) {
    ExpectMain(__func__);
    desk_.Client = &client;
    on_exit(EndAtExit, &desk_);
    desk_.Above.Changed = [this] { TellOfTitleBar(desk_); };
    desk_.Above.Measure();
    WatchScreens(TellWindowsOfScreens);
    client.applicationWillFinishLaunching();
    client.applicationDidFinishLaunching();
    QObject::connect(
        qGuiApp, &QGuiApplication::applicationStateChanged,
        [this](Qt::ApplicationState state) { TellActivity(state == Qt::ApplicationActive); });
    const QSocketNotifier notifier(endAsked->Descriptor(), QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, [this] { End(desk_); });
    QTimer::singleShot(kSettledMs, qGuiApp, [&client] { client.applicationDidSettle(); });
    QApplication::exec();
    End(desk_);
}

void DesktopApplication::TellActivity(bool active) {
    ApplicationClient* const client = desk_.Listener();
    if (active == active_ || client == nullptr) return;
    active_ = active;
    if (active) client->applicationDidBecomeActive();
    if (!active) client->applicationWillResignActive();
}

void DesktopApplication::Terminate() {
    AskForEnd();
}

void DesktopApplication::TerminateNow() {
    ExpectMain(__func__);
    AskForEnd();
    End(desk_);
}

void DesktopApplication::Serve(std::chrono::nanoseconds duration) {
    ExpectMain(__func__);
    QEventLoop loop;
    const auto whole = std::chrono::ceil<std::chrono::milliseconds>(duration);
    QTimer::singleShot(std::max(whole, std::chrono::milliseconds(0)), &loop, &QEventLoop::quit);
    loop.exec();
}

Window* DesktopApplication::ActiveWindow() {
    ExpectMain(__func__);
    if (QGuiApplication::applicationState() != Qt::ApplicationActive) return nullptr;
    return HostWindow::LastActive();
}

}  // namespace platform::desktop
