#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <random>
#include <string>

#include "tests/desktop/screen.h"

// Lets the game play in a real window for some minutes while somebody types, clicks, chooses from
// the menus and moves windows at random, and tells what became of it:
// korvandi_soak minutes [seed]

namespace {

using std::chrono::steady_clock;

constexpr int kHowManyBetweenLooks = 12;

constexpr const char* kKeys[] = {"Return", "Escape", "j",         "n",      "Return", "5",
                                 "0",      "a",      "BackSpace", "Left",   "Right",  "Home",
                                 "F3",     "ctrl+l", "ctrl+v",    "ctrl+x", "ctrl+a", "space",
                                 "Delete", "ctrl+c", "Tab",       "minus",  "j",      "n"};
// All but quit; open and save stand before an Escape that closes their panels.
constexpr const char* kShortcuts[] = {"h", "w", "c", "b", "f", "m", "e",
                                      "d", "z", "k", "0", "0", "0", "3"};

class Person {
  public:
    Person(const Screen& screen, unsigned seed) : screen_(screen), random_(seed) {}

    void DoSomething() {
        const int what = Between(0, 99);
        if (what < 55) {
            screen_.Press(OneOf(kKeys));
        } else if (what < 70) {
            Click();
        } else if (what < 84) {
            screen_.Press(std::string("ctrl+shift+") + OneOf(kShortcuts));
        } else if (what < 87) {
            screen_.Press(std::string("ctrl+shift+") + (Between(0, 1) == 0 ? "o" : "s"));
            screen_.Press("Escape");
        } else if (what < 91) {
            Do("getactivewindow windowmove " + Number(-200, 1200) + " " + Number(0, 800));
        } else if (what < 94) {
            Do("getactivewindow windowsize " + Number(50, 1700) + " " + Number(50, 1100));
        } else if (what < 96) {
            screen_.Press("alt+F4");
        } else {
            ShowTheGame();
        }
    }

    // From whatever window of the program is there; a click beside all of them, or the last one
    // hidden, leaves none that hears keys.
    void ShowTheGame() {
        screen_.Press("Escape");
        Do("search --onlyvisible --class '^Probe$' windowactivate");
        screen_.Press("ctrl+shift+0");
        const std::string windows = screen_.Do("search --onlyvisible --name '^Probe$'");
        game_ = windows.substr(0, windows.find('\n'));
        Do("windowactivate " + game_);
    }

  private:
    int Between(int first, int last) {
        return std::uniform_int_distribution<int>(first, last)(random_);
    }
    std::string Number(int first, int last) { return std::to_string(Between(first, last)); }
    template <std::size_t Count>
    const char* OneOf(const char* const (&words)[Count]) {
        return words[Between(0, Count - 1)];
    }
    // Mostly into the picture: what is chosen elsewhere may be to quit.
    void Click() {
        const bool anywhere = Between(0, 19) == 0;
        const std::string x = Number(20, anywhere ? 1599 : 1200);
        const std::string y = Number(60, anywhere ? 999 : 600);
        Do("mousemove " + (anywhere ? "" : "--window " + game_ + " ") + x + " " + y + " click " +
           Number(1, 3));
        screen_.Press("Escape");  // of a menu that it opened
    }

    void Do(const std::string& words) { static_cast<void>(screen_.Do(words)); }

    const Screen& screen_;
    std::string game_;  // its window
    std::mt19937 random_;
};

using Minutes = std::chrono::duration<double, std::ratio<60>>;

// Runs the program until the time is over or the person chose to quit, and tells about it; false
// unless it ended as it should.
bool Run(const Screen& screen, Person& person, steady_clock::time_point end) {
    Program game({KORVANDI_PROBE}, screen.Display());
    game.Say("play");
    if (screen.WindowTitled("Probe").empty()) return false;
    const auto start = steady_clock::now();
    const auto elapsed = [start] { return Minutes(steady_clock::now() - start).count(); };
    const double early = elapsed() + Minutes(end - start).count() / 10;
    long before = 0;  // resident after a tenth of the time
    long resident = game.ResidentKiB();
    std::string frames;
    while (resident > 0 && steady_clock::now() < end) {
        person.ShowTheGame();
        for (int i = 0; i < kHowManyBetweenLooks; ++i) person.DoSomething();
        if (const auto line = game.Line("probe: frames", std::chrono::seconds(1))) frames = *line;
        const long now = game.ResidentKiB();
        if (now == 0) break;
        resident = now;
        if (before == 0 && elapsed() > early) before = resident;
    }
    game.Signal(SIGTERM);
    const std::optional<int> status = game.Ended();
    std::printf("%.1f minutes, ended %s\n", elapsed(), status == 0 ? "as asked to" : "BADLY");
    std::printf("    %s ms between two\n", frames.c_str());
    if (before > 0) {
        std::printf("    resident: %ld KiB after a tenth, %ld KiB at the end: %+ld\n", before,
                    resident, resident - before);
    }
    std::fflush(stdout);
    return status == 0;
}

}  // namespace

int main(int argc, char** argv) {
    const double minutes = argc > 1 ? std::atof(argv[1]) : 1;
    const auto seed = static_cast<unsigned>(argc > 2 ? std::atoi(argv[2]) : 1);
    const auto end =
        steady_clock::now() + std::chrono::duration_cast<steady_clock::duration>(Minutes(minutes));
    Person person(Screen::Shared(), seed);
    while (steady_clock::now() < end) {
        if (!Run(Screen::Shared(), person, end)) return 1;
    }
    return 0;
}
