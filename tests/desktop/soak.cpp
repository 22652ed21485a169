#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iterator>
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
            Do("mousemove " + Number(0, 1599) + " " + Number(0, 999) + " click " + Number(1, 3));
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

    void ShowTheGame() {
        screen_.Press("Escape");
        screen_.Press("ctrl+shift+0");
        const std::string windows = screen_.Do("search --onlyvisible --name '^Probe$'");
        Do("windowactivate " + windows.substr(0, windows.find('\n')));
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
    void Do(const std::string& words) { static_cast<void>(screen_.Do(words)); }

    const Screen& screen_;
    std::mt19937 random_;
};

int Soak(double minutes, unsigned seed) {
    const Screen& screen = Screen::Shared();
    Program game({KORVANDI_PROBE}, screen.Display());
    game.Say("play");
    if (screen.WindowTitled("Probe").empty()) return 1;
    Person person(screen, seed);
    person.ShowTheGame();
    const auto start = steady_clock::now();
    const auto elapsed = [&] {
        return std::chrono::duration<double, std::ratio<60>>(steady_clock::now() - start).count();
    };
    long early = 0;  // resident after a tenth of the time
    std::string last;
    while (elapsed() < minutes) {
        person.ShowTheGame();
        for (int i = 0; i < kHowManyBetweenLooks; ++i) person.DoSomething();
        if (const auto line = game.Line("probe: frames", std::chrono::seconds(1))) last = *line;
        if (early == 0 && elapsed() > minutes / 10) early = game.ResidentKiB();
        if (game.ResidentKiB() == 0) {
            std::printf("CRASH after %.1f minutes, status %d\n", elapsed(),
                        game.Ended().value_or(-1));
            return 1;
        }
    }
    const long late = game.ResidentKiB();
    game.Signal(SIGTERM);
    const int status = game.Ended().value_or(-1);
    std::printf("%.1f minutes, seed %u, no crash, ended with status %d\n", elapsed(), seed, status);
    std::printf("resident: %ld KiB after a tenth, %ld KiB at the end, growth %ld KiB\n", early,
                late, late - early);
    std::printf("%s ms between two\n", last.c_str());
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    const double minutes = argc > 1 ? std::atof(argv[1]) : 1;
    const auto seed = static_cast<unsigned>(argc > 2 ? std::atoi(argv[2]) : 1);
    return Soak(minutes, seed);
}
