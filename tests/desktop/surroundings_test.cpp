#include <fcntl.h>
#include <pty.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/desktop/desktop_fixture.h"

// The game where something that it could count on is missing, full or broken.

namespace {

namespace fs = std::filesystem;

using Surroundings = Desktop;

TEST_F(Surroundings, StandardOutputMayBeClosedFullOrWithoutAReader) {
    for (const char* const output : {">&-", "> /dev/full", "> >(true)"}) {
        Program game({"bash", "-c", std::string("exec " KORVANDI_GAME " ") + output},
                     screen.Display());
        EXPECT_FALSE(screen.WindowTitled("Korvandi").empty()) << output;
        game.Signal(SIGTERM);
        EXPECT_EQ(game.Ended(), 0) << output;
    }
}

TEST_F(Surroundings, FontsMayBeMissingOrBroken) {
    struct Row {
        const char* Font;  // what the font files hold; nullptr: there are none
        const char* Line;
    };
    for (const Row& row : {Row{nullptr, "getbinaryfromfile: Error #"},
                           Row{"", "t_LoadFontResource: Could not load file"},
                           Row{"\x10vxfn", "t_LoadFontResource: Invalid header size"}}) {
        const fs::path folder = fs::path(testing::TempDir()) / "korvandi_without_fonts";
        fs::create_directories(folder / "resources");
        fs::copy_file(KORVANDI_GAME, folder / "korvandi", fs::copy_options::overwrite_existing);
        for (const char* const name : {"MenloBold 16x32.font", "MenloRegular 16x32.font"}) {
            if (row.Font != nullptr) std::ofstream(folder / "resources" / name) << row.Font;
        }
        Program game({folder / "korvandi"}, screen.Display());
        EXPECT_TRUE(game.Line(row.Line)) << row.Line;
        EXPECT_TRUE(Eventually([&] {
            return !screen.Do("search --onlyvisible --class '^korvandi$'").empty();
        })) << "a window with the menus";
        game.Signal(SIGTERM);
        EXPECT_EQ(game.Ended(), 0);
        fs::remove_all(folder);
    }
}

TEST_F(Surroundings, TheScreenMayBeSmallAndWithoutAWindowManager) {
    const Screen bare("800x600", Screen::Manager::None);
    Program game({KORVANDI_GAME}, bare.Display());
    // Whoever looks for the window earlier comes and goes alone, and the server starts anew.
    ASSERT_TRUE(game.Line("applicationWillFinishLaunching"));
    const std::string window = bare.WindowTitled("Korvandi");
    ASSERT_FALSE(window.empty());
    static_cast<void>(bare.Do("windowfocus " + window));
    EXPECT_TRUE(Eventually([&] {
        bare.Press("Return");
        return bare.Picture().pixel(300, 300) == kDarkBlue;
    }));
    game.Signal(SIGTERM);
    EXPECT_EQ(game.Ended(), 0);
}

TEST_F(Surroundings, TheClockMayBeSetBack) {
    Program game({"env", "LD_PRELOAD=" KORVANDI_CLOCK_SET_BACK, KORVANDI_GAME}, screen.Display());
    const std::string window = screen.WindowTitled("Korvandi");
    static_cast<void>(screen.Do("windowfocus --sync " + window));
    ASSERT_TRUE(game.Line("clock: set back"));
    screen.Press("Return");
    const auto picture = [&] {
        const Place at = PlaceOf(window);
        return screen.Picture().copy(at.X, at.Y, at.Width, at.Height);
    };
    EXPECT_TRUE(Eventually(
        [&] { return picture().pixel(kBorder + 600, picture().height() - 400) == kDarkBlue; }));
    for (int i = 0; i < 3; ++i) {
        const QImage before = picture();
        EXPECT_TRUE(Eventually([&] { return picture() != before; })) << "the ball moves";
    }
    game.Signal(SIGTERM);
    EXPECT_EQ(game.Ended(), 0);
}

// Both ends of a pipe or of a terminal; the one that is written to is full.
struct FullOutput {
    explicit FullOutput(bool terminal) {
        int ends[2];
        const int made =
            terminal ? openpty(&ends[0], &ends[1], nullptr, nullptr, nullptr) : pipe(ends);
        EXPECT_EQ(made, 0);
        Read = ends[0];
        Write = ends[1];
        fcntl(Write, F_SETFL, O_NONBLOCK);
        while (write(Write, "x", 1) == 1) continue;
        fcntl(Write, F_SETFL, 0);
    }
    ~FullOutput() {
        close(Read);
        close(Write);
    }
    FullOutput(const FullOutput&) = delete;
    FullOutput& operator=(const FullOutput&) = delete;

    int Read = -1;
    int Write = -1;
};

TEST_F(Surroundings, TheReaderOfTheOutputMayBeStopped) {
    for (const bool terminal : {false, true}) {
        const FullOutput output(terminal);
        Program stopped({"bash", "-c", "exec " KORVANDI_PROBE " >&" + std::to_string(output.Write)},
                        screen.Display());
        stopped.Say("flood");
        stopped.Say("open");
        EXPECT_FALSE(screen.WindowTitled("Probe").empty()) << terminal;
        stopped.Signal(SIGTERM);
        EXPECT_EQ(stopped.Ended(), 0) << terminal;
    }
}

TEST_F(Surroundings, TheSessionBusMayNeverAnswer) {
    const std::string path = testing::TempDir() + "korvandi_bus";
    std::remove(path.c_str());
    const int bus = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{AF_UNIX, {}};
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(bind(bus, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(listen(bus, 5), 0);
    Program game({"env", "DBUS_SESSION_BUS_ADDRESS=unix:path=" + path, KORVANDI_GAME},
                 screen.Display());
    EXPECT_FALSE(screen.WindowTitled("Korvandi").empty());
    game.Signal(SIGTERM);
    EXPECT_EQ(game.Ended(), 0);
    close(bus);
    std::remove(path.c_str());
}

TEST_F(Surroundings, TheDisplayMayBeStopped) {
    const Screen own("800x600", Screen::Manager::Openbox);
    Program game({KORVANDI_GAME}, own.Display());
    ASSERT_FALSE(own.WindowTitled("Korvandi").empty());
    own.Signal(SIGSTOP);
    game.Signal(SIGTERM);
    EXPECT_EQ(game.Ended(), 0);
    own.Signal(SIGCONT);
}

TEST_F(Surroundings, ThreadsAndDescriptorsMayBeFew) {
    const auto start = [](const std::string& threads) -> std::vector<std::string> {
        return {"env", "LD_PRELOAD=" KORVANDI_FEW_THREADS, "KORVANDI_THREADS=" + threads,
                KORVANDI_GAME};
    };
    Program none(start("0"), screen.Display());
    EXPECT_TRUE(none.Line("The program could not be started: "));
    EXPECT_EQ(none.Ended(), 1);
    Program descriptors({"sh", "-c", "ulimit -n 8; exec " KORVANDI_GAME}, screen.Display());
    EXPECT_EQ(descriptors.Ended(), 1);
    for (const auto& [threads, line] :
         {std::pair("2", "startprocess: Thread could not be started: "),
          std::pair("3", "t_RunInBackground: Thread could not be started: "),
          std::pair("4", "DesktopSounds: Thread could not be started: ")}) {
        Program game(start(threads), screen.Display());
        const std::string window =
            screen.WindowTitled(threads[0] == '2' ? "Hauptfenster" : "Korvandi");
        EXPECT_FALSE(window.empty()) << threads;
        static_cast<void>(screen.Do("windowfocus --sync " + window));
        screen.Press("Return");  // the game begins with a sound
        EXPECT_TRUE(game.Line(line)) << threads;
        game.Signal(SIGTERM);
        EXPECT_EQ(game.Ended(), 0) << threads;
    }
}

TEST_F(Surroundings, ResourcesThatAreMissingAreNamed) {
    const fs::path folder = fs::path(testing::TempDir()) / "korvandi_alone";
    fs::create_directories(folder);
    fs::copy_file(KORVANDI_GAME, folder / "korvandi", fs::copy_options::overwrite_existing);
    Program game({folder / "korvandi"}, screen.Display());
    EXPECT_TRUE(game.Line("applicationDidFinishLaunching: Resources not found in " +
                          (folder / "resources").string() + ", "));
    EXPECT_FALSE(screen.WindowTitled("Hauptfenster").empty());
    game.Signal(SIGTERM);
    EXPECT_EQ(game.Ended(), 0);
    Program unseen(
        {"sh", "-c", "cd '" + folder.string() + "' && unset DISPLAY && exec ./korvandi > lines"},
        "");
    EXPECT_EQ(unseen.Ended(std::chrono::seconds(60)), 1) << "no pictures were made";
    fs::remove_all(folder);
}

// The samples of the sound file that the sound system writes while it plays.
std::vector<std::int16_t> SamplesIn(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    const std::size_t data = bytes.find("data");
    if (data == std::string::npos) return {};
    std::vector<std::int16_t> samples((bytes.size() - data - 8) / 2);
    std::memcpy(samples.data(), bytes.data() + data + 8, 2 * samples.size());
    return samples;
}

TEST_F(Surroundings, AClickIsHeard) {
    const std::string wave = testing::TempDir() + "korvandi_click.wav";
    const std::string settings = testing::TempDir() + "korvandi_sound.conf";
    std::ofstream(settings) << "[general]\nsample-type = int16\nchannels = mono\n"
                               "frequency = 44100\n[wave]\nfile = "
                            << wave << "\n";
    Program player({"env", "ALSOFT_DRIVERS=wave", "ALSOFT_CONF=" + settings, KORVANDI_PROBE},
                   screen.Display());
    player.Say("click");
    const auto loud = [&] {
        const std::vector<std::int16_t> samples = SamplesIn(wave);
        return std::ranges::count_if(samples, [](std::int16_t s) { return std::abs(s) > 1000; });
    };
    EXPECT_TRUE(Eventually([&] { return loud() > 20; }));
    player.Signal(SIGTERM);
    EXPECT_EQ(player.Ended(), 0);
    std::remove(wave.c_str());
    std::remove(settings.c_str());
}

}  // namespace
