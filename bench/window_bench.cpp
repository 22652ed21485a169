#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "bench/key_answers.h"
#include "tests/desktop/screen.h"

// The windowed program beside a bare window with menus, on a screen of its own: the time from the
// start of the process to its first picture, the processor time at 30 pictures a second, the
// resident memory. Both take turns, and the smaller figures count. Then the game by itself: what it
// costs while it waits at its question and while it plays, and how soon a key is answered.

namespace {

using std::chrono::steady_clock;

constexpr int kStarts = 20;
constexpr int kLooks = 3;
constexpr std::chrono::seconds kLook(4);
constexpr double kPictureKiB = 1280.0 * 800 * 4 / 1024;

// Processor seconds that a process has used.
double ProcessorSeconds(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string line;
    std::getline(file, line);
    std::istringstream words(line.substr(line.rfind(')') + 2));
    std::string skipped;
    for (int i = 0; i < 11; ++i) words >> skipped;
    double user = 0;
    double system = 0;
    words >> user >> system;
    return (user + system) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

// How often the threads of a process that are there now went to sleep.
double Sleeps(pid_t process) {
    double sleeps = 0;
    const std::string tasks = "/proc/" + std::to_string(process) + "/task";
    for (const auto& task : std::filesystem::directory_iterator(tasks)) {
        std::ifstream status(task.path() / "status");
        for (std::string word; status >> word;) {
            double count = 0;
            if (word == "voluntary_ctxt_switches:" && status >> count) sleeps += count;
        }
    }
    return sleeps;
}

constexpr double kNone = 1e9;  // not measured

struct Figures {
    double FirstPicture = kNone;  // milliseconds
    double Share = kNone;         // per cent of a core
    double Resident = kNone;      // KiB
};

void MeasureStart(const std::string& program, Figures& figures) {
    const auto start = steady_clock::now();
    Program started({program, "0"}, Screen::Shared().Display());
    if (!started.Line("shown")) return;
    const std::chrono::duration<double, std::milli> took = steady_clock::now() - start;
    figures.FirstPicture = std::min(figures.FirstPicture, took.count());
}

void MeasureRun(const std::string& program, Figures& figures) {
    Program started({program, "30"}, Screen::Shared().Display());
    if (!started.Line("shown")) return;
    std::this_thread::sleep_for(std::chrono::seconds(1));
    const double before = ProcessorSeconds(started.Id());
    std::this_thread::sleep_for(kLook);
    const double used = ProcessorSeconds(started.Id()) - before;
    figures.Share = std::min(figures.Share, 100 * used / static_cast<double>(kLook.count()));
    figures.Resident = std::min(figures.Resident, static_cast<double>(started.ResidentKiB()));
}

// What a process does in a second of a while.
struct Load {
    double Share = kNone;    // per cent of a core
    double WakeUps = kNone;  // of all its threads
};

void Look(const Program& program, Load& load) {
    constexpr auto kSeconds = static_cast<double>(kLook.count());
    std::this_thread::sleep_for(std::chrono::seconds(1));
    const double time = ProcessorSeconds(program.Id());
    const double sleeps = Sleeps(program.Id());
    std::this_thread::sleep_for(kLook);
    load.Share = std::min(load.Share, 100 * (ProcessorSeconds(program.Id()) - time) / kSeconds);
    load.WakeUps = std::min(load.WakeUps, (Sleeps(program.Id()) - sleeps) / kSeconds);
}

struct GameFigures {
    Load Waiting;
    Load Playing;
    std::vector<double> Answers;  // milliseconds, in order
};

// Waits at the question for the delay, answers it with 33 ms and plays.
void MeasureGame(GameFigures& figures) {
    const Screen& screen = Screen::Shared();
    const Program game({KORVANDI_GAME}, screen.Display());
    static_cast<void>(screen.WindowTitled("Korvandi.*"));
    Look(game, figures.Waiting);
    if (figures.Answers.empty()) figures.Answers = TimesOfAnswers(screen.Display());
    screen.Press("ctrl+z");
    screen.Press("3");
    screen.Press("3");
    screen.Press("Return");
    Look(game, figures.Playing);
}

// The time that so many of a hundred answers take at most.
double Answer(const GameFigures& figures, std::size_t share) {
    return figures.Answers[figures.Answers.size() * share / 100];
}

void PrintRow(const char* work, double figure, double limit, double goal, const char* unit) {
    const double ratio = figure / limit;
    std::printf("%-44s %9.1f %-3s %9.1f %-3s %6.2f %6.2f %s\n", work, figure, unit, limit, unit,
                ratio, goal, ratio <= goal ? "holds" : "MISSED");
}

}  // namespace

int main() {
    Figures ours;
    Figures bare;
    for (int i = 0; i < kStarts; ++i) {
        MeasureStart(KORVANDI_WINDOW_PROGRAM, ours);
        MeasureStart(KORVANDI_BARE_WINDOW, bare);
    }
    for (int i = 0; i < kLooks; ++i) {
        MeasureRun(KORVANDI_WINDOW_PROGRAM, ours);
        MeasureRun(KORVANDI_BARE_WINDOW, bare);
    }
    GameFigures game;
    for (int i = 0; i < kLooks; ++i) MeasureGame(game);
    std::printf("%-44s %13s %13s %6s %6s\n", "work", "figure", "limit", "ratio", "goal");
    for (const Figures& figures : {ours, bare}) {
        if (figures.FirstPicture == kNone || figures.Share == kNone || figures.Resident == 0) {
            std::puts("A program did not show its window.");
            return 1;
        }
    }
    if (game.Answers.empty()) {
        std::puts("The game did not answer a key.");
        return 1;
    }
    PrintRow("window: first picture", ours.FirstPicture, bare.FirstPicture, 1.5, "ms");
    PrintRow("window: processor time at 30 pictures a s", ours.Share, bare.Share, 1.0, "%");
    PrintRow("window: resident, bare + 16 MiB + 2 pictures", ours.Resident,
             bare.Resident + 16 * 1024 + 2 * kPictureKiB, 1.1, "KiB");
    std::puts("    limit: a bare window with menus");
    PrintRow("game: processor time while it waits", game.Waiting.Share, 1, 1, "%");
    PrintRow("game: wake-ups a second while it waits", game.Waiting.WakeUps, 400, 1, "");
    PrintRow("game: processor time at a delay of 33 ms", game.Playing.Share, 2.5, 1, "%");
    PrintRow("game: a key's first pixel, half of them", Answer(game, 50), 5, 1, "ms");
    PrintRow("game: a key's first pixel, 95 of 100", Answer(game, 95), 10, 1, "ms");
    std::puts("    limit: fixed");
    return 0;
}
