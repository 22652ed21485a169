#include "app/run_program.h"
#include "app/virtual_screen.h"
#include "game/demo_program.h"
#include "platform/desktop/desktop.h"
#include "platform/platform.h"

int main(int argc, char** argv) {
    if (platform::desktop::DisplayReachable()) {
        platform::desktop::Start(argc, argv);
        RunProgram(DemoProgram);
    } else {
        PlayOnVirtualScreen(DemoProgram, platform::desktop::SavePicture);
    }
    platform::Application::Leave();
}
