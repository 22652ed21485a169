#include "platform/headless/headless.h"

#include <filesystem>
#include <iostream>

#include "app/run_program.h"
#include "platform/program_files.h"
#include "toolkit/toolkit.h"

// A program without a screen: tells whether it finds the fonts and whether it drew with one.

int main() {
    const platform::ResourceFolder resources = platform::FindResourceFolder();
    std::cout << (resources.Searched.empty() ? "resources found" : "no resources") << std::endl;
    platform::headless::Headless desktop;
    desktop.ResourceFolder = resources.Path;
    RunProgram([&] {
        t_InitWindow(0, 24, 80, 25, 16, "MenloRegular 16x32.font");
        t_Print(0, "Hallo\r");
        std::cout << "line " << t_Windows[0].TextVpos << std::endl;
        desktop.Terminate();
    });
    platform::Application::Leave();
}
