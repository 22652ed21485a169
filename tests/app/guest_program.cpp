#include "korvandi_headless.h"
#include "platform/application.h"

// A program that earns warnings: a name in two places, a narrowed number.

int main() {
    const long lines = 25;
    const korvandi::Outcome outcome = korvandi::RunHeadless(
        [] {
            const std::int64_t lines = t_ThreadNumber();
            const std::uint8_t window = lines;
            t_InitWindow(window, 24, 80, lines, 16, "none.font");
        },
        {korvandi::Wait{1000}});
    platform::Application::Leave(outcome.Ended && lines == 25 ? 0 : 1);
}
