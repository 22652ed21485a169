#include <string>
#include <utility>

#include "app/file_commands.h"
#include "app/run_program.h"
#include "app/virtual_screen.h"
#include "korvandi.h"
#include "platform/application.h"
#include "platform/desktop/desktop.h"

int korvandi::Run(int argc, char** argv, std::string_view name, std::function<void()> program) {
    t_MenuHandler = RunFileCommand;
    if (platform::desktop::DisplayReachable()) {
        platform::desktop::Start(argc, argv, name);
        RunProgram(std::move(program));
        platform::Application::Leave();
    }
    const bool played =
        PlayOnVirtualScreen(name, std::move(program), platform::desktop::SavePicture);
    platform::Application::Leave(played ? 0 : 1);
}
