#include "app/run_program.h"
#include "game/demo_program.h"
#include "platform/desktop/desktop.h"
#include "platform/platform.h"

int main(int argc, char** argv) {
    platform::desktop::Start(argc, argv);
    RunProgram(DemoProgram);
    platform::Application::Leave();
}
