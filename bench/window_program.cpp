#include <cstdlib>
#include <thread>

#include "app/run_program.h"
#include "platform/desktop/desktop.h"
#include "platform/platform.h"
#include "toolkit/toolkit.h"

// The windowed program that is measured: a window of 80 x 25 cells whose whole picture moves so
// many times a second. window_program moves-per-second

namespace {

std::int64_t movesPerSecond = 0;

void Move() {
    t_InitWindow(0, 24, 80, 25, 16, "MenloRegular 16x32.font");
    t_WindowCenter(0);
    t_WindowFront(0);
    while (t_Windows[0].UpdateFinished == 0) toolkit::SleepMilliseconds(1);
    toolkit::PrintLine("shown");
    while (movesPerSecond == 0) static_cast<void>(t_WaitKey(0));
    for (std::int64_t color = 0;; ++color) {
        toolkit::SleepMilliseconds(1000 / movesPerSecond);
        t_Color(0, color % 16);
        t_CursorEnd(0);
        t_Print(0, "Korvandi\r");
    }
}

}  // namespace

int main(int argc, char** argv) {
    movesPerSecond = argc > 1 ? std::atoi(argv[1]) : 0;
    platform::desktop::Start(argc, argv, "Korvandi");
    RunProgram(Move);
    platform::Application::Leave();
}
