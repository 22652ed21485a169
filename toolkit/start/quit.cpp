#include "toolkit/start/quit.h"

#include <string>

#include "platform/platform.h"
#include "toolkit/core/clock.h"
#include "toolkit/core/output.h"
#include "toolkit/graphics/refresh.h"
#include "toolkit/text/area.h"
#include "toolkit/text/cursor.h"
#include "toolkit/text/print.h"
#include "toolkit/window/host_windows.h"

toolkit::Handler& t_TerminateHandler = *new toolkit::Handler;

namespace {

constexpr std::int64_t kClosingColor = 1;

void LeaveClosingMessage(std::uint8_t window) {
    t_FullArea(window);
    t_CursorEnd(window);
    t_Htab(window, 1);
    t_DisplayMode(window, 0);
    t_Normal(window);
    t_Color(window, kClosingColor);
    t_Print(window, "(Programm Ende)");
    t_WindowUpdate(window, false);
    toolkit::SleepMilliseconds(100);
}

}  // namespace

void t_QuitProgram(std::uint8_t window) {
    {
        // One line in one piece, whatever other threads print meanwhile.
        std::string line = "t_QuitProgram: Quitting current thread";
        if (t_WindowHostWindow(window) != nullptr) {
            LeaveClosingMessage(window);
            line += toolkit::Joined(" with message in window #", window);
        }
        toolkit::PrintLine(line, ".");
    }
    if (platform::OnMain()) platform::Current().Application->TerminateNow();
    platform::EndThread();
}
