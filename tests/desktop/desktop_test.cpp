#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <string>
#include <utility>

#include "tests/desktop/desktop_fixture.h"

// The programs as a person uses them: real windows, a window manager, keys from the X server.

namespace {

TEST_F(Desktop, ShowsTheMemorySharpAtEveryWholeScale) {
    const std::string window = OpenProbe();
    const QImage frame = Frame();
    ASSERT_EQ(frame.size(), QSize(kWidth, kHeight));
    for (const int scale : {1, 2}) {
        Command("scale " + std::to_string(kWidth * scale) + " " + std::to_string(kHeight * scale));
        const QImage wanted = frame.scaled(frame.size() * scale);
        QImage shown;
        EXPECT_TRUE(Eventually([&] {
            const Place at = PictureIn(PlaceOf(window), scale);
            shown = screen.Picture().copy(at.X, at.Y, at.Width, at.Height);
            return FirstDifference(shown, wanted).empty();
        })) << "scale "
            << scale << FirstDifference(shown, wanted);
    }
    const Place client = PlaceOf(window);
    const QImage picture = screen.Picture();
    EXPECT_EQ(picture.pixel(client.X + 2, client.Y + client.Height - 3), kGreyBorder);
    EXPECT_EQ(picture.pixel(client.X + client.Width - 3, client.Y + client.Height - 3),
              kGreyBorder);
}

TEST_F(Desktop, MeasuresTheFrameThatTheWindowManagerGives) {
    const std::string window = OpenProbe();
    ASSERT_TRUE(Eventually([&] { return Pos(13) == PlaceOf(window).X; }));
    const Place client = PlaceOf(window);
    const int title = Pos(17);
    const int menus = client.Height - kHeight - 2 * kBorder;
    EXPECT_GT(menus, 0);
    EXPECT_GT(title, menus);
    EXPECT_EQ(Pos(10), client.Width);
    EXPECT_EQ(Pos(12), kHeight + 2 * kBorder + title);
    EXPECT_EQ(Pos(14), client.Y + menus - title) << "distance from the top of the screen";
    EXPECT_EQ(Pos(20), 1000 - client.Y - client.Height);
    EXPECT_NEAR(2 * Pos(13), 1600 - Pos(10), 4);
    EXPECT_EQ(Pos(15), 1600);
    EXPECT_EQ(Pos(16), 1000);

    Command("title 0");
    EXPECT_EQ(Pos(17), 0);
    EXPECT_TRUE(Eventually([&] { return PlaceOf(window).Height == kHeight + 2 * kBorder; }));
    EXPECT_EQ(PlaceOf(window).X, Pos(13));
    Command("title 1");
    EXPECT_TRUE(Eventually([&] { return PlaceOf(window).Height == client.Height; }));
}

struct KeyRow {
    const char* Layout;
    const char* Key;  // as xdotool names it, or the number of its place
    int Value;
    int Code;
};

constexpr KeyRow kKeys[] = {
    {"us", "a", 'a', 0},           {"us", "shift+a", 'A', 0},
    {"us", "ctrl+c", 3, 8},        {"us", "ctrl+q", 17, 12},
    {"us", "Return", 13, 36},      {"us", "KP_Enter", 13, 76},
    {"us", "BackSpace", 127, 51},  {"us", "Delete", 7, 117},
    {"us", "Left", 8, 123},        {"us", "Right", 21, 124},
    {"us", "Home", 2, 115},        {"us", "Next", 3, 121},
    {"us", "F1", 129, 122},        {"us", "F2", 130, 120},
    {"us", "Tab", 9, 48},          {"us", "shift+Tab", 20, 48},
    {"us", "grave", 96, 10},       {"de", "z", 'z', 16},
    {"de", "udiaeresis", 252, 33}, {"de", "shift+udiaeresis", 220, 33},
    {"de", "ssharp", 223, 27},     {"de", "EuroSign", 164, 14},
    {"de", "49", 94, 10},          {"de", "21", 180, 24},
    {"de", "shift+21", 96, 24},
};

TEST_F(Desktop, TurnsKeysIntoValuesByPositionAndLayout) {
    OpenProbe();
    probe->Say("keys");
    ASSERT_TRUE(probe->Line("probe: ready"));
    for (const KeyRow& row : kKeys) {
        screen.Keyboard(row.Layout);
        screen.Press(row.Key);
        const std::string wanted =
            "probe: key " + std::to_string(row.Value) + " code " + std::to_string(row.Code) + " ";
        const std::string got = probe->Line("probe: key").value_or("nothing");
        EXPECT_TRUE(got.starts_with(wanted)) << row.Layout << " " << row.Key << ": " << got;
    }
    screen.Press("Shift_L");
    screen.Press("Num_Lock");
    screen.Press("Num_Lock");
    screen.Press("Escape");
    EXPECT_TRUE(probe->Line("probe: key").value_or("nothing").starts_with("probe: key 27 code 53"))
        << "modifiers alone queue nothing";
}

TEST_F(Desktop, CloseBoxHidesAndNobodyIsLeftWithoutAWindow) {
    const std::string window = OpenProbe();
    Focus(window);
    screen.Press("alt+F4");
    EXPECT_TRUE(probe->Line("t_MouseEventPostCloseBoxClick: Window = 0"));
    const std::string main = screen.WindowTitled("Hauptfenster");
    EXPECT_FALSE(main.empty());
    EXPECT_EQ(screen.Do("search --onlyvisible --name '^Probe$'"), "");
    for (int close = 0; close < 3; ++close) {  // each time the person does not want to quit
        Focus(screen.WindowTitled("Hinweis"));
        screen.Press("Escape");
        EXPECT_TRUE(Gone("Hinweis"));
        Focus(main);
        EXPECT_EQ(screen.WindowTitled("Hauptfenster"), main);
        screen.Press("alt+F4");
    }
    EXPECT_EQ(Command("front 0"), "done front");
    EXPECT_EQ(screen.WindowTitled("Probe"), window) << "hidden, not closed";
    Focus(screen.WindowTitled("Hinweis"));
    screen.Press("Return");
    EXPECT_EQ(probe->Ended(), 0);
}

TEST_F(Desktop, EndsWhateverTheProgramThreadDoes) {
    constexpr const char* kStates[] = {"wait",    "sleep",  "draw",   "ask",
                                       "compute", "dialog", "hide 0", "twice"};
    const char* const wanted = std::getenv("KORVANDI_STARTS");
    const std::ptrdiff_t starts = wanted == nullptr ? std::ssize(kStates) : std::atoi(wanted);
    long long slowest = 0;
    for (std::ptrdiff_t start = 0; start < starts; ++start) {
        const std::string state = kStates[start % std::ssize(kStates)];
        OpenProbe();
        Command(state);
        const auto asked = std::chrono::steady_clock::now();
        probe->Signal(SIGTERM);
        if (state == "twice") probe->Signal(SIGTERM);
        ASSERT_EQ(probe->Ended(), 0) << state;
        const std::chrono::duration<double, std::milli> took =
            std::chrono::steady_clock::now() - asked;
        slowest = std::max(slowest, std::llround(took.count()));
        EXPECT_TRUE(probe->Line("applicationWillTerminate: Called.")) << state;
        EXPECT_FALSE(probe->Line("applicationWillTerminate: Called.")) << state;
    }
    std::cout << starts << " starts, the slowest end took " << slowest << " ms\n";
    OpenProbe();
    probe->Say("quit");
    ASSERT_TRUE(probe->Line("t_QuitProgram: Quitting current thread with message in window #0."));
    screen.Press("ctrl+shift+q");
    EXPECT_EQ(probe->Ended(), 0) << "from the menu, after the program thread ended";
    for (const auto& [line, status] : {std::pair("exit 7", 7), std::pair("quit-main", 0)}) {
        OpenProbe();
        probe->Say(line);
        EXPECT_EQ(probe->Ended(), status) << line;
    }
}

TEST_F(Desktop, PlaysTheGame) {
    Program game({KORVANDI_GAME}, screen.Display());
    const std::string window = screen.WindowTitled("Korvandi");
    static_cast<void>(screen.Do("windowfocus --sync " + window));
    const auto field = [&] {
        const Place client = PlaceOf(window);
        return screen.Picture().pixel(client.X + kBorder + 600, client.Y + client.Height - 400);
    };
    EXPECT_NE(field(), kDarkBlue) << "before the game";
    screen.Press("Return");
    EXPECT_TRUE(Eventually([&] { return field() == kDarkBlue; }));
    screen.Press("Escape");
    EXPECT_TRUE(Eventually([&] {
        screen.Press("n");
        return game.Line("t_QuitProgram: ", std::chrono::seconds(1)).has_value();
    }));
    screen.Press("ctrl+shift+q");
    EXPECT_EQ(game.Ended(), 0);
}

TEST(WithoutAScreen, PlaysOnAVirtualOne) {
    const std::string folder = testing::TempDir();
    Program game({"sh", "-c", "cd '" + folder + "' && unset DISPLAY && exec '" KORVANDI_GAME "'"},
                 "");
    EXPECT_TRUE(game.Line("Kein Bildschirm erreichbar"));
    EXPECT_TRUE(game.Line("Bild: korvandi-bilder/6-ende.png"));
    EXPECT_EQ(game.Ended(), 0);
    const QImage end(QString::fromStdString(folder + "korvandi-bilder/3-spiel.png"));
    EXPECT_EQ(end.size(), QSize(1312, 832));
    EXPECT_EQ(end.pixel(600, 400), kDarkBlue);
}

}  // namespace
