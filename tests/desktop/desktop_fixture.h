#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "tests/desktop/screen.h"

// The probe in a real window, and what a test compares its picture with.

inline constexpr int kBorder = 16;
inline constexpr int kWidth = 320;  // of the probe's picture
inline constexpr int kHeight = 320;
inline constexpr QRgb kGreyBorder = 0xFF545454;
inline constexpr QRgb kDarkBlue = 0xFF000080;

struct Place {
    int X = 0;
    int Y = 0;
    int Width = 0;
    int Height = 0;
};

// Where the client area of a window lies on the screen.
inline Place PlaceOf(const std::string& window, const Screen& screen = Screen::Shared()) {
    const std::string lines = screen.Describe(window);
    const auto number = [&](const std::string& name) {
        const std::size_t at = lines.find(name);
        return at == std::string::npos ? 0 : std::atoi(lines.c_str() + at + name.size());
    };
    return {number("Absolute upper-left X:"), number("Absolute upper-left Y:"), number("Width:"),
            number("Height:")};
}

// Where two pictures differ first, as text.
inline std::string FirstDifference(const QImage& shown, const QImage& wanted) {
    if (shown.size() != wanted.size()) return ": sizes differ";
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            if (shown.pixel(x, y) == wanted.pixel(x, y)) continue;
            std::ostringstream text;
            text << ": at (" << x << ", " << y << ") " << std::hex << shown.pixel(x, y)
                 << " instead of " << wanted.pixel(x, y);
            return text.str();
        }
    }
    return "";
}

class Desktop : public testing::Test {
  protected:
    explicit Desktop(Screen& shown = Screen::Shared()) : screen(shown) { screen.Keyboard("us"); }

    // A probe whose window is open and has the keys.
    std::string OpenProbe() {
        probe.emplace(std::vector<std::string>{KORVANDI_PROBE}, screen.Display());
        Command("open");
        std::string window = screen.WindowTitled("Probe");
        static_cast<void>(screen.Do("windowfocus --sync " + window));
        return window;
    }

    std::string Command(const std::string& line) {
        probe->Say(line);
        return probe->Line("probe: ").value_or("no answer").substr(7);
    }

    int Pos(int code) { return std::atoi(Command("pos " + std::to_string(code)).c_str() + 4); }

    void Click(int x, int y, const std::string& how = "click 1") const {
        static_cast<void>(screen.Do("mousemove --sync " + std::to_string(x) + " " +
                                    std::to_string(y) + " " + how));
    }

    // Where the title of a menu is seen in this window of the probe.
    Place MenuTitle(const std::string& window, const std::string& title) {
        Place at = PlaceOf(window, screen);
        int x = 0;
        int y = 0;
        EXPECT_EQ(std::sscanf(Command("menu " + title).c_str(), "menu %d %d", &x, &y), 2) << title;
        at.X += x;
        at.Y += y;
        return at;
    }

    void Focus(const std::string& window) const {
        static_cast<void>(screen.Do("windowactivate --sync " + window));
    }

    // Waits until no visible window has a title that fits the regular expression.
    [[nodiscard]] bool Gone(const std::string& title) const {
        return Eventually(
            [&] { return screen.Do("search --onlyvisible --name '^" + title + "$'").empty(); });
    }

    // What the memory holds.
    QImage Frame() {
        const std::string path = testing::TempDir() + "korvandi_probe.png";
        EXPECT_EQ(Command("frame " + path), "saved");
        const QImage frame(QString::fromStdString(path));
        std::remove(path.c_str());
        return frame.convertToFormat(QImage::Format_RGB32);
    }

    // Where the picture lies on the screen: the content's lower left corner is the client area's.
    [[nodiscard]] static Place PictureIn(const Place& client, int scale) {
        return {client.X + kBorder, client.Y + client.Height - kBorder - kHeight * scale,
                kWidth * scale, kHeight * scale};
    }

    Screen& screen;
    std::optional<Program> probe;
};
