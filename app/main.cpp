#include "app/file_commands.h"
#include "app/run_program.h"
#include "app/virtual_screen.h"
#include "game/demo_program.h"
#include "platform/desktop/desktop.h"
#include "platform/platform.h"
#include "toolkit/toolkit.h"

int main(int argc, char** argv) {
    if (platform::desktop::DisplayReachable()) {
        platform::desktop::Start(argc, argv);
        t_MenuHandler = RunFileCommand;
        RunProgram(DemoProgram);
        platform::Application::Leave();
    }
    const bool played = PlayOnVirtualScreen(DemoProgram, platform::desktop::SavePicture);
    platform::Application::Leave(played ? 0 : 1);
}
