#include <cstdint>
#include <memory>
#include <vector>

#include "bench/ratio_table.h"
#include "bench/screen.h"
#include "game/demo_program.h"
#include "toolkit/toolkit.h"

namespace {

struct Plot {
    std::int64_t X;
    std::int64_t Y;
    std::uint8_t Color;  // the window's colour byte
};

std::vector<Plot>* recording = nullptr;

void TypeKeys(std::initializer_list<std::int64_t> values) {
    for (const std::int64_t value : values) {
        t_Event event;
        event.Kind = 1;
        event.Value = value;
        t_EventQueue.Append(event);
    }
}

// One demonstration without pauses, from the delay prompt to the end of the wall, the same each
// time; the program thread ends after it.
void PlayOnce() {
    constexpr std::int64_t kBackspace = 127;
    constexpr double kStartTime = 800'000'000.0123;
    platform::headless::Headless& desktop = TheScreen().Desktop;
    // Chance is made of the clock, too, which stands still in a game without pauses: at some times it
    // would be no chance at all, and the ball would fly round in circles for ever.
    desktop.StartTime += kStartTime - desktop.Now();
    desktop.NextRandom = [seed = std::uint32_t{1}]() mutable {
        seed = seed * 1'664'525U + 1'013'904'223U;
        return seed >> 8U;
    };
    PaddleOldY = 0;
    TypeKeys({kBackspace, kBackspace, '0', 13});
    const std::string fault = platform::StartThread(
        [] {
            // Keys typed ahead of the end of the game would be dropped by it.
            static_cast<void>(t_Random(1));
            DemoProgram();
        },
        0);
    if (!fault.empty()) return;
    desktop.ServeUntil([&] {
        if (Score >= 720 && !t_EventPending) TypeKeys({'N'});
        return platform::RunningThreads() == 0;
    });
    Score = 0;
    t_EventQueue.Clear();
}

}  // namespace

extern "C" {
// The linker sends the game's calls of t_Plot here, and the calls below to t_Plot itself.
void PlotForReal(std::uint8_t window, std::int64_t x, std::int64_t y) asm("__real__Z6t_Plothll");
void PlotRecorded(std::uint8_t window, std::int64_t x, std::int64_t y) asm("__wrap__Z6t_Plothll");

void PlotRecorded(std::uint8_t window, std::int64_t x, std::int64_t y) {
    if (recording != nullptr) recording->push_back({x, y, t_Windows[window].TextColor});
    PlotForReal(window, x, y);
}
}

void AddDemonstrationPairs() {
    auto plots = std::make_shared<std::vector<Plot>>();
    AddPair(
        "whole demonstration, delay 0", "its plots alone", [] { PlayOnce(); },
        [plots] {
            if (plots->empty()) {
                recording = plots.get();
                PlayOnce();
                recording = nullptr;
            }
            if (t_Windows[0].BitDepth != 24 || t_Windows[0].TextWidth != 80) Screen::Open(24);
            t_LoResMode(0, 1);
            t_LoResOffset(0, 0, 8);
            for (const Plot& plot : *plots) {
                t_Windows[0].TextColor = plot.Color;
                PlotForReal(0, plot.X, plot.Y);
            }
        },
        1.5);
}
