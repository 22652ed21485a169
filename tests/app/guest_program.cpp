#include "app/run_program.h"
#include "platform/headless/headless.h"
#include "toolkit/toolkit.h"

// A program that earns warnings: a name in two places, a narrowed number.

int main() {
    platform::headless::Headless desktop;
    const long lines = 25;
    RunProgram([&] {
        const std::int64_t lines = t_ThreadNumber();
        const std::uint8_t window = lines;
        t_InitWindow(window, 24, 80, lines, 16, "none.font");
        desktop.Terminate();
    });
    platform::Application::Leave(lines == 25 ? 0 : 1);
}
