#include "platform/desktop/desktop.h"

#include <QtCore/QFile>
#include <QtCore/QLocale>
#include <QtGui/QAccessible>
#include <QtGui/QGuiApplication>
#include <QtGui/QIcon>
#include <QtWidgets/QApplication>
#include <csignal>
#include <string>

#include "platform/desktop/clipboard.h"
#include "platform/desktop/desk.h"
#include "platform/desktop/desktop_application.h"
#include "platform/desktop/display.h"
#include "platform/desktop/file_panels.h"
#include "platform/desktop/german.h"
#include "platform/desktop/host_window.h"
#include "platform/desktop/images.h"
#include "platform/desktop/main_clock.h"
#include "platform/desktop/sounds.h"
#include "platform/desktop/surroundings.h"
#include "platform/desktop/text.h"
#include "platform/desktop/window_maker.h"
#include "platform/parts/machine.h"
#include "platform/parts/standard_output.h"
#include "platform/platform.h"
#include "platform/program_files.h"

namespace platform::desktop {

using parts::MachineRandomness;
using parts::ProgramFolders;
using parts::StandardOutput;

namespace {

/// Ends by the seam's rules when the session asks for the end: the window library would first ask
/// every window, and a window of ours never closes.
class EventLoop : public QApplication {
  public:
    using QApplication::QApplication;

    bool event(QEvent* event) override {
        if (event->type() != QEvent::Quit) return QApplication::event(event);
        Current().Application->Terminate();
        return true;
    }
};

// The choice of the display system is for this process alone, not for programs that it starts.
void MakeEventLoop(int argc, char** argv) {
    static int arguments = argc;
    const bool chosenByPerson = qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
    if (!chosenByPerson) qputenv("QT_QPA_PLATFORM", ReachablePlatform().c_str());
    static const auto* const eventLoop = new EventLoop(arguments, argv);  // never destroyed
    static_cast<void>(eventLoop);
    LetGoOfDisplay();
    if (!chosenByPerson) qunsetenv("QT_QPA_PLATFORM");
}

void SetUpEventLoop(std::string_view applicationName) {
    const QString name = ToQt(applicationName);
    QApplication::setApplicationName(name);
    QApplication::setApplicationDisplayName(QString());
    QGuiApplication::setDesktopFileName(name.toLower());
    QApplication::setQuitOnLastWindowClosed(false);
    QLocale::setDefault(QLocale(QLocale::German));
    static auto* const german = new German;
    QCoreApplication::installTranslator(german);
}

// A program may bring a picture of its own for its windows, beside it or among its resources; without
// one the desktop shows what its entry of the program names.
void ShowIcon(const std::string& resources) {
    for (const std::string& folder : {ProgramFolder(), resources}) {
        const QString path = ToQt(folder + "/" + ProgramName() + ".png");
        if (!QFile::exists(path)) continue;
        QApplication::setWindowIcon(QIcon(path));
        return;
    }
}

// The event loop would look for the accessibility service when it starts, and the first window make
// its widgets when it is shown; both with a person waiting.
void PrepareFirstWindow() {
    QAccessible::setRootObject(qApp);
    if (!HostWindow::All().empty()) HostWindow::All().front()->Prepare();
}

}  // namespace

bool DisplayReachable() {
    return !ReachablePlatform().empty();
}

void Start(int argc, char** argv, std::string_view applicationName) {
    parts::OpenStandardDescriptors();
    RequireDescriptorsAndThreads();
    SessionBus bus;
    std::signal(SIGPIPE, SIG_IGN);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    auto& desk = *new Desk;
    auto* const application = new DesktopApplication(desk);
    static_cast<void>(ReachablePlatform());  // takes the time that the bus has for its answer
    bus.LeaveOutUnlessAlive();
    MakeEventLoop(argc, argv);
    if (ThreadsAreScarce()) static_cast<void>(QAccessible::isActive());
    SetUpEventLoop(applicationName);
    desk.Pump.Open();

    auto* const files = new ProgramFolders(applicationName);
    ShowIcon(files->Directory());
    Platform made;
    made.Application = application;
    made.WindowMaker = new DesktopWindowMaker(desk);
    made.MenuBar = &desk.Bar.Model();
    made.Panels = new FilePanels;
    made.Pasteboard = new Clipboard;
    made.Sounds = new DesktopSounds(files->Directory());
    made.Clock = new MainClock(PrepareFirstWindow);
    made.Randomness = new MachineRandomness;
    made.Output = new StandardOutput;
    made.Resources = files;
    Install(made);
}

bool SavePicture(const Picture& picture, const std::string& path) {
    return ImageOf(picture).save(ToQt(path));
}

}  // namespace platform::desktop
