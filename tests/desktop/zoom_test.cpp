#include <cstdlib>
#include <string>

#include "tests/desktop/desktop_fixture.h"

// How large windows are shown, and where.

namespace {

constexpr int kLarger = 1;  // items of the menu "Fenster"
constexpr int kSmaller = 2;
constexpr int kOriginal = 3;

constexpr int kContent = kWidth + 2 * kBorder;

class Zoom : public Desktop {
  protected:
    using Desktop::Desktop;

    // Chooses an item of the menu "Fenster", counted from 1.
    void Choose(const std::string& window, int item) {
        const Place menu = MenuTitle(window, "Fenster");
        Click(menu.X, menu.Y);
        for (int i = 0; i < item; ++i) screen.Press("Down");
        screen.Press("Return");
    }

    // Waits until the client area is so wide and high.
    [[nodiscard]] bool Becomes(const std::string& window, int width, int height,
                               std::chrono::seconds limit = std::chrono::seconds(20)) const {
        return Eventually(
            [&] {
                const Place at = PlaceOf(window, screen);
                return at.Width == width && at.Height == height;
            },
            limit);
    }

    // What the program hears of a click on the screen.
    std::string ClickAt(int x, int y) {
        Click(x, y);
        return probe->Line("t_MouseEventHandler: Graphic")
            .value_or(std::string(40, ' '))
            .substr(40);
    }

    // In a window at 150 % whose content begins at (left, top) on the screen.
    void ExpectClicksInLargerWindow(int left, int top) {
        struct Row {
            int X;  // from the upper left of the content
            int Y;
            const char* Heard;
        };
        for (const Row& row :
             {Row{24, 24, "X = 0, Y = 0"}, Row{174, 99, "X = 100, Y = 50"},
              Row{23, 24, "X = -1, Y = 0"}, Row{24, 23, "X = 0, Y = -1"},
              Row{503, 503, "X = 319, Y = 319"}, Row{504, 504, "X = -2, Y = -2"}}) {
            EXPECT_EQ(ClickAt(left + row.X, top + row.Y), row.Heard);
        }
    }

    // In the same window: the pointer is where it is without a click, too, and leaves.
    void ExpectPointerInLargerWindow(int left, int top) {
        struct Row {
            int X;  // from the upper left of the content
            int Y;
            const char* How;
            const char* Seen;
        };
        for (const Row& row :
             {Row{174, 99, "", "inside 100 50 0"}, Row{24, 24, "mousedown 1", "inside 0 0 1"},
              Row{-30, 24, "", "outside 0 0 1"}, Row{503, 503, "mouseup 1", "inside 319 319 0"},
              Row{504, 503, "", "outside 319 319 0"}, Row{-30, 24, "", "outside 319 319 0"}}) {
            Click(left + row.X, top + row.Y, row.How);
            EXPECT_TRUE(Eventually([&] { return Command("pointer") == row.Seen; }))
                << row.X << ", " << row.Y << ": " << Command("pointer");
        }
    }

    // In a window that is much wider than its picture; the border begins below the menus.
    [[nodiscard]] bool CentresThePicture(const std::string& window) {
        return Eventually([&] {
            const Place at = PlaceOf(window, screen);
            const int right = at.X + at.Width - 5;
            const int bottom = at.Y + at.Height;
            const QImage picture = screen.Picture();
            int top = at.Y;
            while (top < bottom && picture.pixel(right, top) != kGreyBorder) ++top;
            const int x = at.X + at.Width / 2;
            const int y = (top + bottom) / 2;
            return top < bottom && picture.pixel(at.X + 5, y) == kGreyBorder &&
                   picture.pixel(right, y) == kGreyBorder && picture.pixel(x, y) != kGreyBorder &&
                   ClickAt(x + 1, y + 1) == "X = 160, Y = 160";
        });
    }

    // The codes of the frame, the screen and what lies between them.
    std::string Codes() {
        std::string codes;
        for (int code = 8; code <= 20; ++code) codes += std::to_string(Pos(code)) + " ";
        return codes;
    }
};

TEST_F(Zoom, ShowsMoreAndTellsTheProgramNothing) {
    const std::string window = OpenProbe();
    const Place before = PlaceOf(window);
    const int menus = before.Height - kContent;
    const std::string codes = Codes();
    EXPECT_EQ(ClickAt(before.X + kBorder + 7, before.Y + menus + kBorder), "X = 7, Y = 0");

    Choose(window, kLarger);
    ASSERT_TRUE(Becomes(window, kContent * 5 / 4, kContent * 5 / 4 + menus));
    Choose(window, kLarger);
    ASSERT_TRUE(Becomes(window, kContent * 3 / 2, kContent * 3 / 2 + menus));
    const Place at = PlaceOf(window);
    EXPECT_NEAR(2 * at.X + at.Width, 1600, 4) << "about the same centre";
    EXPECT_EQ(Codes(), codes);
    ExpectClicksInLargerWindow(at.X, at.Y + menus);
    ExpectPointerInLargerWindow(at.X, at.Y + menus);
    // The preferences still show 100 %; choosing that is a choice all the same.
    screen.Press("ctrl+shift+e");
    Focus(screen.WindowTitled("Einstellungen"));
    for (const char* const key : {"Tab", "space", "Return"}) screen.Press(key);
    EXPECT_TRUE(Becomes(window, before.Width, before.Height));
    for (const char* const key : {"space", "Down", "Down", "Return"}) screen.Press(key);
    EXPECT_TRUE(Becomes(window, at.Width, at.Height));
    Command("front 0");

    const int x = Pos(13);
    const int moved = 100 - at.X;
    EXPECT_TRUE(Eventually([&] {
        static_cast<void>(screen.Do("windowmove " + window + " 100 100"));
        return std::abs(Pos(13) - x - moved) <= 1;
    })) << "the frame moves along: "
        << Pos(13) - x << " of " << moved;
    Choose(window, kOriginal);
    EXPECT_TRUE(Becomes(window, before.Width, before.Height));
    EXPECT_EQ(PlaceOf(window).X, Pos(13));
}

TEST_F(Zoom, FollowsItsKeysOnEveryKeyboard) {
    const std::string window = OpenProbe();
    const Place before = PlaceOf(window, screen);
    const int menus = before.Height - kContent;
    struct Row {
        const char* Layout;
        const char* Larger;  // the numbers of the keys' places
        const char* Smaller;
    };
    for (const Row& row :
         {Row{"us", "21", "20"}, Row{"us", "86", "82"}, Row{"de", "35", "61"},
          Row{"de nodeadkeys", "35", "61"}, Row{"ch", "10", "61"}, Row{"fr", "21", "82"}}) {
        screen.Keyboard(row.Layout);
        screen.Press(std::string("ctrl+shift+") + row.Larger);
        EXPECT_TRUE(Becomes(window, kContent * 5 / 4, kContent * 5 / 4 + menus)) << row.Layout;
        screen.Press("ctrl+shift+19");
        EXPECT_TRUE(Becomes(window, before.Width, before.Height)) << row.Layout;
        screen.Press(std::string("ctrl+shift+") + row.Smaller);
        EXPECT_TRUE(Becomes(window, kContent * 3 / 4, kContent * 3 / 4 + menus)) << row.Layout;
        screen.Press("ctrl+shift+19");
        EXPECT_TRUE(Becomes(window, before.Width, before.Height)) << row.Layout;
    }
}

TEST_F(Zoom, FollowsTheSideThatIsPulled) {
    const std::string window = OpenProbe();
    const int menus = PlaceOf(window).Height - kContent;
    struct Row {
        int Wider;
        int Higher;
        int Zoomed;  // the content
    };
    for (const Row& row : {Row{176, 0, 528}, Row{0, 100, 628}, Row{-276, -50, 352}}) {
        const Place at = PlaceOf(window);
        // A window that has just been shown insists on its own size once.
        EXPECT_TRUE(Eventually([&] {
            static_cast<void>(screen.Do("windowsize " + window + " " +
                                        std::to_string(at.Width + row.Wider) + " " +
                                        std::to_string(at.Height + row.Higher)));
            return Becomes(window, row.Zoomed, row.Zoomed + menus, std::chrono::seconds(1));
        })) << row.Zoomed;
        EXPECT_EQ(Pos(10), kContent);
    }
}

TEST_F(Zoom, CentresThePictureInAnotherShape) {
    const std::string window = OpenProbe();
    const Place before = PlaceOf(window);
    const std::string twiceOnTitle = "click --repeat 2 --delay 50 1";
    Click(before.X + before.Width / 2, before.Y - 10, twiceOnTitle);
    ASSERT_TRUE(Eventually([&] { return PlaceOf(window).Width > 1500; })) << "maximised";
    EXPECT_TRUE(CentresThePicture(window));
    const Place at = PlaceOf(window);
    Click(at.X + at.Width / 2, at.Y - 10, twiceOnTitle);
    EXPECT_TRUE(Becomes(window, before.Width, before.Height));
}

TEST_F(Zoom, LeavesNoWindowOutOfReach) {
    const std::string window = OpenProbe();
    Command("place -100 50");
    EXPECT_TRUE(Eventually([&] { return PlaceOf(window).X == -100; })) << "partly outside";
    for (const char* const place : {"place 5000 100", "place -4000 -3000", "place 100 4000"}) {
        Command(place);
        EXPECT_EQ("place " + std::to_string(Pos(13)) + " " + std::to_string(Pos(20)), place);
        EXPECT_TRUE(Eventually([&] {
            const Place at = PlaceOf(window);
            return at.X < 1600 - 50 && at.X + at.Width > 50 && at.Y > 10 && at.Y < 1000;
        })) << place;
    }
}

class SmallScreen : public Zoom {
  protected:
    SmallScreen() : Zoom(Shown()) {}

    static Screen& Shown() {
        static Screen small("1024x600", Screen::Manager::Openbox);
        return small;
    }

    // Frame and border of the window are on the screen on all sides.
    [[nodiscard]] bool ShowsAllOf(const std::string& window) const {
        const Place at = PlaceOf(window, screen);
        const QImage picture = screen.Picture();
        const int bottom = at.Y + at.Height;
        return at.X >= 1 && at.Y >= 20 && at.X + at.Width < 1024 && bottom < 600 &&
               picture.pixel(at.X + at.Width / 2, bottom - 2) == kGreyBorder;
    }
};

TEST_F(SmallScreen, HasTheWholeGame) {
    const Program game({KORVANDI_GAME}, screen.Display());
    const std::string window = screen.WindowTitled("Korvandi");
    EXPECT_TRUE(Eventually([&] { return ShowsAllOf(window); }));
    static_cast<void>(screen.Do("windowfocus --sync " + window));
    const Place fitting = PlaceOf(window, screen);
    screen.Press("ctrl+shift+20");
    EXPECT_TRUE(Eventually([&] { return PlaceOf(window, screen).Width == 1312 / 2; }));
    for (int i = 0; i < 4; ++i) screen.Press("ctrl+shift+21");
    EXPECT_TRUE(Becomes(window, fitting.Width, fitting.Height)) << "no larger than the screen";
    EXPECT_TRUE(Eventually([&] { return ShowsAllOf(window); }));
}

TEST_F(SmallScreen, GivesRoomToAPanelAndTakesItBack) {
    const std::string window = OpenProbe();
    const Place before = PlaceOf(window, screen);
    Command("front 10");
    const std::string panel = screen.WindowTitled("Systemkonsole");
    screen.Reserve(panel, 300);
    EXPECT_TRUE(Eventually([&] {
        const Place at = PlaceOf(window, screen);
        return at.Y >= 320 && at.Y + at.Height < 600;
    }));
    screen.Reserve(panel, 0);
    EXPECT_TRUE(Becomes(window, before.Width, before.Height));
    EXPECT_EQ(PlaceOf(window, screen).Y, before.Y);
}

class TilingManager : public Zoom {
  protected:
    TilingManager() : Zoom(Shown()) {}

    static bool IsInstalled() { return std::system("command -v i3 > /dev/null") == 0; }

    static Screen& Shown() {
        using enum Screen::Manager;
        static Screen screen("1024x600", IsInstalled() ? I3 : None);
        return screen;
    }
};

TEST_F(TilingManager, HasItsWay) {
    if (!IsInstalled()) GTEST_SKIP() << "i3 is not installed";
    const std::string window = OpenProbe();
    EXPECT_TRUE(CentresThePicture(window));
    Choose(window, kSmaller);
    EXPECT_TRUE(CentresThePicture(window));
    EXPECT_EQ(Pos(10), kContent);
}

}  // namespace
