#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>

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
        return bare.Picture().pixel(400, 300) == kDarkBlue;
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

}  // namespace
