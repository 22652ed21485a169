#include <algorithm>
#include <set>
#include <thread>

#include "app/console_feed.h"
#include "app/menus.h"
#include "platform/thread.h"
#include "tests/support/fixture.h"
#include "toolkit/core/output.h"

// Menus, form windows and the console.

namespace {

class Interface : public WindowTest {
  protected:
    platform::FormRow& RowOf(std::uint8_t window, std::string_view title) {
        auto& rows = Host(window).Rows;
        return *std::ranges::find(rows, title, &platform::FormRow::Title);
    }

    // Serves the main thread until everything that was printed has reached the console.
    void ServeConsole() {
        bool served = false;
        platform::PostToMain([&served] { served = true; });
        EXPECT_TRUE(desktop.ServeUntil([&served] { return served; }));
    }
};

std::string Lines(int first, int end) {
    std::string lines;
    for (int i = first; i < end; ++i) lines += "Zeile " + std::to_string(i) + "\n";
    return lines;
}

}  // namespace

TEST_F(Interface, MenusReachEveryActionAndNoKeyIsTakenTwice) {
    std::set<std::int64_t> tags;
    std::set<std::string> keys;
    for (const auto& menu : desktop.Menu.Menus()) {
        for (std::int64_t i = 0; i < menu->NumberOfItems(); ++i) {
            const platform::MenuItem& item = *menu->ItemAt(i);
            EXPECT_EQ(item.Separator, item.Title.empty());
            tags.insert(item.Tag);
            if (item.KeyEquivalent.empty()) continue;
            EXPECT_TRUE(keys.insert(item.KeyEquivalent).second) << item.Title;
            EXPECT_EQ(item.KeyEquivalentModifierMask, platform::kControlFlag | platform::kShiftFlag)
                << item.Title;
        }
    }
    for (std::int64_t tag = 100; tag <= 230; ++tag) {
        const bool action =
            tag <= 101 || (tag >= 110 && tag <= 114) || tag == 200 || tag == 201 || tag >= 205;
        EXPECT_EQ(tags.contains(tag), action) << tag;
    }
    EXPECT_TRUE(keys.contains("q"));
}

TEST_F(Interface, ChosenItemsReachTheToolkit) {
    desktop.Choose("Fenster", "Drucker zeigen");
    EXPECT_EQ(t_FrontWindow(), 9);
    desktop.Choose("Fenster", "Grafikfenster 0 zeigen");
    EXPECT_EQ(t_FrontWindow(), 0);
    EXPECT_EQ(t_MenuEventQueue[1].MenuTitle, "Fenster");
    EXPECT_EQ(t_MenuEventQueue[1].ItemKeyAsc, '0');
    desktop.Choose("Korvandi", "Korvandi beenden");
    desktop.Run(delegate);  // returns at once
    EXPECT_TRUE(desktop.Printed().ends_with("applicationWillTerminate: Called.\n"));
    while (platform::RunningThreads() != 0) std::this_thread::yield();
}

TEST_F(Interface, ButtonsShowTheirWindows) {
    t_FirstWindow = 255;
    platform::FormRow& program = RowOf(12, "Programmfenster zeigen");
    EXPECT_FALSE(program.Enabled());
    t_FirstWindow = 0;
    EXPECT_TRUE(program.Enabled());
    struct Row {
        std::string_view Title;
        std::uint8_t Window;
    };
    for (const Row& row : {Row{"Zwischenablage zeigen", 8}, Row{"Drucker zeigen", 9},
                           Row{"Systemkonsole zeigen", 10}, Row{"Einstellungen …", 11},
                           Row{"Programmfenster zeigen", 0}}) {
        RowOf(12, row.Title).Changed(0);
        EXPECT_EQ(t_FrontWindow(), row.Window) << row.Title;
    }
}

TEST_F(Interface, PreferencesReachSoundsAndOpenWindows) {
    Open(3, 8, 5, 4);
    RowOf(11, "Bilder je Sekunde").Changed(3);
    EXPECT_EQ(t_Windows[0].RefreshRate, 60);
    EXPECT_EQ(t_Windows[3].RefreshRate, 60);
    EXPECT_EQ(t_Windows[1].RefreshRate, 30);
    RowOf(11, "Bilder je Sekunde").Changed(9);
    EXPECT_EQ(t_Windows[0].RefreshRate, 60);
    RowOf(11, "Größe der offenen Grafikfenster").Changed(1);
    EXPECT_EQ(View(3).Frame().Width, 60);
    EXPECT_EQ(View(3).Frame().Height, 48);
    EXPECT_EQ(t_Windows[3].Width, 40);
    RowOf(11, "Töne").Changed(0);
    t_SysBeep();
    EXPECT_EQ(desktop.Played(), std::vector<std::string>());
    RowOf(11, "Töne").Changed(1);
    t_SysBeep();
    EXPECT_EQ(desktop.Played(), std::vector<std::string>{"beep"});
}

TEST_F(Interface, TheConsoleShowsWhatIsPrinted) {
    const auto& console =
        dynamic_cast<const platform::headless::HeadlessTextView&>(*t_WindowTextView(10));
    t_InitMemory();
    toolkit::PrintPiece("A");
    t_Print(9, "");
    ServeConsole();
    EXPECT_TRUE(console.Content.ends_with("At_Print: Window is not a graphic window.\n"));
}

TEST_F(Interface, TheConsoleKeepsTheNewestLinesInOrder) {
    platform::headless::HeadlessTextView view;
    const auto feed = MakeConsoleFeed(view);
    for (int i = 0; i < 45'000; ++i) feed(Lines(i, i + 1));  // while the main thread is busy
    ServeConsole();
    EXPECT_TRUE(view.Content == Lines(35'000, 45'000));
    feed(std::string(20'000'000, 'x'));
    feed("\nEnde\n");
    ServeConsole();
    EXPECT_LT(view.Content.size(), 10'000'000U);
    EXPECT_TRUE(view.Content.ends_with("x\nEnde\n"));
}

TEST_F(Interface, TheConsoleTakesLinesFromTwoThreads) {
    platform::headless::HeadlessTextView view;
    const auto feed = MakeConsoleFeed(view);
    std::thread other([&feed] {
        for (int i = 0; i < 2000; ++i) feed("b" + std::to_string(i) + "\n");
    });
    for (int i = 0; i < 2000; ++i) {
        feed("a" + std::to_string(i) + "\n");
        if (i % 100 == 0) ServeConsole();
    }
    other.join();
    ServeConsole();
    int next[2] = {0, 0};
    for (std::size_t at = 0; at < view.Content.size(); at = view.Content.find('\n', at) + 1) {
        const int which = view.Content[at] - 'a';
        ASSERT_EQ(view.Content.compare(at + 1, 1 + std::to_string(next[which]).size(),
                                       std::to_string(next[which]) + "\n"),
                  0);
        ++next[which];
    }
    EXPECT_EQ(next[0] + next[1], 4000);
}
