#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

#include "tests/desktop/desktop_fixture.h"

// Menus, text windows, the clipboard and the panels, by mouse and by key.

namespace {

class Menus : public Desktop {
  protected:
    // What another program pastes; waits until it is `wanted`.
    [[nodiscard]] bool Pastes(const std::string& wanted) const {
        return Eventually([&] { return screen.Clipboard("UTF8_STRING") == wanted; },
                          std::chrono::seconds(5));
    }
};

TEST_F(Menus, CopyTextAndPictureForOtherPrograms) {
    const std::string window = OpenProbe();
    const std::string line = "Äß# Äß# Äß# Äß# Äß#\r";
    const std::string text = line + line + line + "Äß#";
    const Place edit = MenuTitle(window, "Bearbeiten");
    Click(edit.X, edit.Y);
    screen.Press("Down");
    screen.Press("Return");
    EXPECT_TRUE(Pastes(text)) << "by mouse, got: " << screen.Clipboard("UTF8_STRING");

    const QImage frame = Frame();
    screen.Press("ctrl+shift+b");
    const std::string path = testing::TempDir() + "korvandi_pasted.png";
    EXPECT_TRUE(Eventually([&] { return screen.SaveClipboard("image/png", path); }));
    const QImage pasted(QString::fromStdString(path));
    EXPECT_EQ(FirstDifference(pasted, frame), "");
    std::remove(path.c_str());

    screen.Press("ctrl+shift+c");
    EXPECT_TRUE(Pastes(text)) << "by key";
}

TEST_F(Menus, ShowEveryWindowAndFindTheWayBack) {
    const std::string window = OpenProbe();
    struct Row {
        const char* Key;
        const char* Title;
    };
    for (const Row& row :
         {Row{"ctrl+shift+k", "Systemkonsole"}, Row{"ctrl+shift+d", "Drucker"},
          Row{"ctrl+shift+z", "Zwischenablage"}, Row{"ctrl+shift+e", "Einstellungen"},
          Row{"ctrl+shift+m", "Hauptfenster"}}) {
        screen.Press(row.Key);
        const std::string shown = screen.WindowTitled(row.Title);
        EXPECT_FALSE(shown.empty()) << row.Title;
        const Place at = PlaceOf(shown);
        EXPECT_NEAR(2 * at.X + at.Width, 1600, 4) << row.Title << " starts in the middle";
        Focus(shown);
    }
    screen.Press("ctrl+shift+h");
    EXPECT_TRUE(Gone("(Probe|Systemkonsole|Drucker)"));
    Focus(screen.WindowTitled("Hauptfenster"));
    screen.Press("ctrl+shift+F1");
    EXPECT_EQ(screen.WindowTitled("Probe"), window);
    Focus(window);
    screen.Press("ctrl+shift+q");
    EXPECT_EQ(probe->Ended(), 0);
}

TEST_F(Menus, TextWindowsShowAndGiveTheirText) {
    OpenProbe();
    Command("print");
    Command("front 9");
    Focus(screen.WindowTitled("Drucker"));
    screen.Press("ctrl+shift+c");
    EXPECT_TRUE(Pastes("Erste Zeile\nZweite Zeile\n") || Pastes("Erste Zeile\nZweite Zeile"));

    Command("front 10");
    const std::string console = screen.WindowTitled("Systemkonsole");
    Focus(console);
    screen.Press("ctrl+shift+c");
    EXPECT_TRUE(Eventually([&] {
        return screen.Clipboard("UTF8_STRING").find("t_InitWindow: GraphicWindow #0 Start.\n") !=
               std::string::npos;
    }));
    // A window that has just been shown insists on its own size once.
    EXPECT_TRUE(Eventually([&] {
        static_cast<void>(screen.Do("windowsize " + console + " 500 400"));
        return PlaceOf(console).Width == 500;
    }));
    static_cast<void>(screen.Do("windowsize " + console + " 30 30"));
    EXPECT_TRUE(Eventually([&] { return PlaceOf(console).Width < 500; }));
    EXPECT_GE(PlaceOf(console).Width, 320) << "room for text and ruler is left";
    EXPECT_GE(PlaceOf(console).Height, 200);

    Command("front 8");
    EXPECT_FALSE(screen.WindowTitled("Zwischenablage").empty());
}

TEST_F(Menus, PasteboardStaysUsableWithAHugeOrStuckOwner) {
    const std::string path = testing::TempDir() + "korvandi_huge.txt";
    constexpr std::size_t kSize = 12'000'000;
    std::ofstream(path) << std::string(kSize, 'x');
    OpenProbe();
    const Program owner({"xclip", "-quiet", "-selection", "clipboard", path}, screen.Display());
    EXPECT_TRUE(Eventually([&] { return !screen.Clipboard("TARGETS").empty(); }));
    Command("front 8");
    probe->Say("pasted");
    const std::string pasted = probe->Line("probe: pasted").value_or("");
    EXPECT_LT(std::atol(pasted.c_str() + 14), 9'000'000);
    EXPECT_TRUE(pasted.ends_with(" … (gekürzt: die Zwischenablage enthält mehr)")) << pasted;

    owner.Signal(SIGSTOP);
    Command("front 8");
    probe->Say("pasted");
    EXPECT_EQ(probe->Line("probe: pasted"), "probe: pasted 0 ");
    owner.Signal(SIGCONT);
    std::filesystem::remove(path);
}

TEST_F(Menus, PanelsGivePathsAndCancel) {
    const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "Korv 50% ü";
    std::filesystem::create_directories(folder);
    setenv("XDG_CONFIG_HOME", (folder / "settings").c_str(), 1);
    OpenProbe();
    const std::string file = folder / "Grüße.txt";
    std::ofstream(file) << "x";
    screen.Keyboard("de");

    probe->Say("dialog");
    Focus(screen.WindowTitled("Datei öffnen"));
    screen.Type(file);
    screen.Press("Return");
    EXPECT_EQ(probe->Line("probe: path"), "probe: path " + file);

    probe->Say("save");
    Focus(screen.WindowTitled("Datei sichern"));
    screen.Press("ctrl+a");
    screen.Type("Neu.md");  // in the folder of the last file
    screen.Press("Return");
    EXPECT_EQ(probe->Line("probe: path"), "probe: path " + (folder / "Neu.md").string());

    probe->Say("save");
    Focus(screen.WindowTitled("Datei sichern"));
    screen.Press("Escape");
    EXPECT_EQ(probe->Line("probe: path"), "probe: path ");
    EXPECT_FALSE(std::filesystem::exists(folder / "settings" / "QtProject.conf"));
    unsetenv("XDG_CONFIG_HOME");
    std::filesystem::remove_all(folder);
}

namespace {

// Keys that belong to the program, pressed after another that gives it none.
struct ProgramKeyRow {
    const char* Layout;
    const char* Key;
    int Value;
    const char* Before = "Alt_L";  // what is pressed first and gives no key
};
constexpr ProgramKeyRow kProgramKeys[] = {
    {"us", "a", 97},
    {"us", "b", 98, "Menu"},
    {"us", "c", 99, "ctrl+shift+F10"},
    {"us", "alt+f", 102},
    {"us", "F10", 138},
    {"us", "ctrl+shift+2", 0},
    {"us", "ctrl+shift+6", 30},
    {"us", "ctrl+6", 30},
    {"us", "ctrl+7", 31},
    {"fr", "ctrl+shift+15", 30},  // the key with the minus sign and the 6
    {"fr", "ctrl+17", 31},        // underscore and 8
    {"fr", "ctrl+shift+11", 0},   // é and 2
    {"fr", "ctrl+shift+16", 31},  // è and 7
    {"de", "ctrl+15", 30},        // 6
    {"de", "ctrl+16", 31},
    {"de", "ctrl+11", 0},
    {"ch", "ctrl+15", 30},
    {"ch", "ctrl+16", 31},
    {"ch", "ctrl+11", 0},
    {"us", "ctrl+slash", 31},
    {"us", "ctrl+space", 0},
};

}  // namespace

TEST_F(Menus, KeysBelongToTheProgramWhileNoMenuIsOpen) {
    const Place edit = MenuTitle(OpenProbe(), "Bearbeiten");
    probe->Say("keys");
    ASSERT_TRUE(probe->Line("probe: ready"));
    const auto next = [this] { return probe->Line("probe: key").value_or("nothing"); };
    std::string layout;
    for (const ProgramKeyRow& row : kProgramKeys) {
        if (std::exchange(layout, row.Layout) != row.Layout) screen.Keyboard(row.Layout);
        screen.Press(row.Before);
        if (std::string(row.Before) != "Alt_L") screen.Press("Escape");  // closes a menu
        screen.Press(row.Key);
        EXPECT_TRUE(next().starts_with("probe: key " + std::to_string(row.Value) + " "))
            << row.Before << " " << row.Layout << " " << row.Key;
    }
    screen.Keyboard("us");
    Click(edit.X, edit.Y);
    screen.Press("Escape");
    screen.Press("Escape");
    EXPECT_TRUE(next().starts_with("probe: key 27 ")) << "the menu took one, the program the other";
}

TEST_F(Menus, OpenByKeyInEveryWindow) {
    OpenProbe();
    struct Row {
        const char* Window;
        const char* Show;
        const char* Key;
    };
    for (const Row& row :
         {Row{"Probe", "front 0", "Menu"}, Row{"Probe", "front 0", "ctrl+shift+F10"},
          Row{"Probe", "title 0", "Menu"}, Row{"Hauptfenster", "front 12", "F10"},
          Row{"Hauptfenster", "front 12", "Menu"}, Row{"Systemkonsole", "front 10", "alt+p"}}) {
        Command(row.Show);
        Focus(screen.WindowTitled(row.Window));
        screen.Press(row.Key);
        screen.Press("Return");  // the first item of the first menu
        EXPECT_FALSE(screen.WindowTitled("Hinweis").empty()) << row.Window << " " << row.Key;
        screen.Press("Escape");
        EXPECT_TRUE(Gone("Hinweis"));
    }
}

TEST_F(Menus, AHeldKeyIsLetGoWhenTheFocusGoes) {
    const std::string window = OpenProbe();
    Command("front 12");
    const std::string other = screen.WindowTitled("Hauptfenster");
    Focus(window);
    static_cast<void>(screen.Do("keydown a"));
    EXPECT_TRUE(Eventually([&] { return Command("down") == "down 1"; }));
    Focus(other);
    EXPECT_TRUE(Eventually([&] { return Command("down") == "down 0"; }));
    static_cast<void>(screen.Do("keyup a"));
}

}  // namespace
