#include "app/run_program.h"
#include "platform/headless/headless.h"
#include "toolkit/toolkit.h"

// A program that earns warnings: a name in two places, a narrowed number, one that nobody uses.

int main() {
    platform::headless::Headless desktop;
    int lines = 25;
    {
        long lines = 80;
        unsigned char columns = lines;
    }
    RunProgram([&] {
        t_InitWindow(0, 24, 80, lines, 16, "none.font");
        desktop.Terminate();
    });
    platform::Application::Leave();
}
