#include <algorithm>
#include <map>
#include <set>
#include <thread>

#include "app/console_feed.h"
#include "app/menus.h"
#include "platform/search.h"
#include "platform/thread.h"
#include "tests/support/fixture.h"
#include "toolkit/core/output.h"

// Menus, form windows and the console.

namespace {

using platform::headless::HeadlessTextView;

class Interface : public WindowTest {
  protected:
    // Presses, switches or chooses in the row of a form window.
    void Change(std::uint8_t window, std::string_view title, std::int64_t value) {
        RowOf(window, title).Changed(value);
    }
    platform::FormRow& RowOf(std::uint8_t window, std::string_view title) {
        return *platform::RowWith(Host(window).Rows, &platform::FormRow::Title, title);
    }

    const platform::MenuItem* ItemTitled(std::string_view title) {
        for (const auto& menu : desktop.Menu.Menus()) {
            for (std::int64_t i = 0; i < menu->NumberOfItems(); ++i) {
                if (menu->ItemAt(i)->Title == title) return menu->ItemAt(i);
            }
        }
        return nullptr;
    }
    bool CanChoose(std::string_view title) { return platform::IsEnabled(*ItemTitled(title)); }

    // Serves the main thread until everything that was printed has reached the console.
    void ServeConsole() {
        bool served = false;
        platform::PostToMain([&served] { served = true; });
        EXPECT_TRUE(desktop.ServeUntil([&served] { return served; }));
    }
};

std::string Lines(char kind, int first, int end) {
    std::string lines;
    for (int i = first; i < end; ++i) lines += kind + std::to_string(i) + "\n";
    return lines;
}

}  // namespace

TEST_F(Interface, MenusReachEveryActionAndNoKeyIsTakenTwice) {
    std::set<std::int64_t> tags;
    std::set<std::string> keys;
    std::map<std::int64_t, std::string> wordings;  // of each action, one
    for (const auto& menu : desktop.Menu.Menus()) {
        for (std::int64_t i = 0; i < menu->NumberOfItems(); ++i) {
            const platform::MenuItem& item = *menu->ItemAt(i);
            EXPECT_EQ(item.Separator, item.Title.empty());
            tags.insert(item.Tag);
            if (item.Tag != 0) {
                EXPECT_EQ(wordings.try_emplace(item.Tag, item.Title).first->second, item.Title);
            }
            if (item.KeyEquivalent.empty()) continue;
            EXPECT_TRUE(keys.insert(item.KeyEquivalent).second) << item.Title;
            EXPECT_EQ(item.KeyEquivalentModifierMask, platform::kControlFlag | platform::kShiftFlag)
                << item.Title;
        }
    }
    std::set<std::int64_t> actions = {0, 100, 101, 110, 111, 112, 113, 114, 200, 201};
    for (std::int64_t action = 205; action <= 230; ++action) actions.insert(action);
    EXPECT_EQ(tags, actions);
    EXPECT_TRUE(keys.contains("q"));
    for (const platform::FormRow& row : Host(12).Rows) {
        if (row.What != platform::FormRow::Kind::Button) continue;
        const std::string title = row.Wording ? row.Wording() : row.Title;
        EXPECT_TRUE(ItemTitled(title) != nullptr) << title;
    }
}

TEST_F(Interface, ChosenItemsReachTheToolkit) {
    desktop.Choose("Fenster", "Drucker zeigen");
    EXPECT_EQ(t_FrontWindow(), 9);
    desktop.Choose("Fenster", "Grafikfenster 0 zeigen");
    EXPECT_EQ(t_FrontWindow(), 0);
    EXPECT_EQ(t_MenuEventQueue[1].ItemKeyAsc, 0xF704);
    desktop.Choose("Korvandi", "Korvandi beenden");
    desktop.Run(delegate);  // ends after the launch
    EXPECT_TRUE(desktop.Printed().ends_with("applicationWillTerminate: Called.\n"));
    while (platform::RunningThreads() != 0) std::this_thread::yield();
}

TEST_F(Interface, ItemsThatCanDoNothingAreDisabled) {
    struct Row {
        const char* Title;
        bool AtFirst;      // graphic window 0 is in front, no other one is shown
        bool WithPrinter;  // the printer is in front with a text, window 0 is hidden
    };
    constexpr Row kRows[] = {
        {"Text kopieren", true, true},
        {"Bild kopieren", true, false},
        {"Sichern unter …", true, true},
        {"Fensterfunktion ausführen", true, false},
        {"Drucker leeren", false, true},
        {"Systemkonsole leeren", false, false},
        {"Alle Fenster ausblenden", true, true},
        {"Vorderstes Fenster ausblenden", true, true},
        {"Hauptfenster zeigen", true, true},
        {"Hauptfenster ausblenden", false, false},
        {"Drucker ausblenden", false, true},
        {"Grafikfenster 0 zeigen", true, true},
        {"Grafikfenster 0 ausblenden", true, false},
        {"Grafikfenster 1 zeigen", false, false},
        {"Neu starten", false, false},
    };
    for (const Row& row : kRows) EXPECT_EQ(CanChoose(row.Title), row.AtFirst) << row.Title;
    t_WindowVisible(0, false);
    t_WindowFront(9);
    t_WindowTextView(9)->SetText("x");
    for (const Row& row : kRows) EXPECT_EQ(CanChoose(row.Title), row.WithPrinter) << row.Title;
    t_WindowVisible(9, false);
    EXPECT_FALSE(CanChoose("Alle Fenster ausblenden") || CanChoose("Text kopieren"));
    desktop.Choose("Fenster", "Grafikfenster 1 zeigen");
    EXPECT_EQ(t_MenuEventQueue.size(), 0);
}

TEST_F(Interface, MenusBearTheNameOfTheProgram) {
    desktop.Bundle = "/opt/Mein Spiel.app";
    BuildMenus(delegate);
    desktop.Choose("Mein Spiel", "Über Mein Spiel");
    EXPECT_EQ(desktop.AlertsRun.at(0).Message, "Mein Spiel");
    desktop.Choose("Mein Spiel", "Mein Spiel beenden");
    desktop.Run(delegate);  // ends after the launch
    while (platform::RunningThreads() != 0) std::this_thread::yield();
}

TEST_F(Interface, FormWindowsReachWindowsAndPreferences) {
    const std::map<std::string, std::uint8_t> buttons = {{"Zwischenablage zeigen", 8},
                                                         {"Drucker zeigen", 9},
                                                         {"Systemkonsole zeigen", 10},
                                                         {"Einstellungen zeigen", 11}};
    for (const auto& [title, window] : buttons) {
        Change(12, title, 0);
        EXPECT_EQ(t_FrontWindow(), window) << title;
    }
    auto& rows = Host(12).Rows;
    platform::FormRow& first = *std::find_if(
        rows.begin(), rows.end(),
        [](const platform::FormRow& row) { return row.Wording && row.Changed != nullptr; });
    EXPECT_EQ(first.Wording(), "Grafikfenster 0 zeigen");
    EXPECT_TRUE(first.Enabled());
    first.Changed(0);
    EXPECT_EQ(t_FrontWindow(), 0);
    t_FirstWindow = toolkit::kNoWindow;
    EXPECT_FALSE(first.Enabled());

    Open(3, 8, 5, 4);
    Change(11, "Bilder je Sekunde", 3);
    Change(11, "Bilder je Sekunde", 9);  // not offered
    for (const std::uint8_t n : {std::uint8_t{0}, std::uint8_t{3}}) {
        EXPECT_EQ(t_Windows[n].RefreshRate, 60);
    }
    EXPECT_EQ(t_Windows[1].RefreshRate, 30);
    for (const std::int64_t on : {0, 1}) {
        Change(11, "Töne", on);
        t_SysBeep();
        EXPECT_EQ(std::ssize(desktop.Played()), on);
    }
}

TEST_F(Interface, ZoomIsForTheEyesOnly) {
    Open(3, 8, 5, 4);
    t_WindowFront(3);
    auto& host = Host(3);
    const platform::Rect frame = host.Frame();
    const std::string choice = "Größe der offenen Grafikfenster";
    EXPECT_EQ(*(RowOf(11, choice).Options.data() + RowOf(11, choice).Value), "100 %");
    for (const auto& [index, zoom] : {std::pair{4, 1.5}, {0, 0.5}, {9, 0.5}}) {
        Change(11, choice, index);
        EXPECT_EQ(host.Zoom(), zoom) << index;
        EXPECT_EQ(Host(1).Zoom(), 1) << "not open";
    }
    desktop.Screen.Width = frame.Width * 3.5;
    for (const auto& [item, zoom] : {std::pair{"Verkleinern", 0.5},
                                     {"Vergrößern", 0.75},
                                     {"Vergrößern", 1.0},
                                     {"Vergrößern", 1.25},
                                     {"Originalgröße", 1.0},
                                     {"Verkleinern", 0.75},
                                     {"Einpassen", 3.5},
                                     {"Verkleinern", 3.0},
                                     {"Vergrößern", 3.5},
                                     {"Vergrößern", 3.5}}) {
        desktop.Choose("Fenster", item);
        EXPECT_DOUBLE_EQ(host.Zoom(), zoom) << item;
    }
    Change(11, choice, 2);
    Change(11, choice, 8);
    EXPECT_DOUBLE_EQ(host.Zoom(), 3.5) << "to fit";
    EXPECT_EQ(host.Frame(), frame);
    EXPECT_EQ(View(3).Frame().Width, 40);
    t_WindowFront(9);
    desktop.Choose("Fenster", "Vergrößern");
    EXPECT_EQ(Host(9).Zoom(), 1) << "a text";
    desktop.ActivateOther();
    desktop.Choose("Fenster", "Originalgröße");
    EXPECT_DOUBLE_EQ(host.Zoom(), 3.5) << "no window in front";
}

TEST_F(Interface, TheConsoleShowsWhatIsPrinted) {
    const auto& console = dynamic_cast<const HeadlessTextView&>(*t_WindowTextView(10));
    toolkit::PrintPiece("A");
    t_Print(9, "");
    ServeConsole();
    EXPECT_TRUE(console.Content.ends_with("At_Print: Window is not a graphic window.\n"));
}

TEST_F(Interface, TheConsoleKeepsTheNewestLinesInOrder) {
    HeadlessTextView view;
    const auto feed = MakeConsoleFeed(view);
    for (int i = 0; i < 45'000; ++i) feed(Lines('a', i, i + 1));  // while the main thread is busy
    ServeConsole();
    EXPECT_TRUE(view.Content == Lines('a', 35'001, 45'000));  // and the empty last line
    feed(std::string(20'000'000, 'x'));  // nor does a line without an end fill the memory
    feed("\nEnde\n");
    ServeConsole();
    EXPECT_LT(view.Content.size(), 10'000'000U);
    EXPECT_TRUE(view.Content.ends_with("x\nEnde\n"));

    view.Content.clear();
    std::thread other([&feed] {
        for (int i = 0; i < 2000; ++i) feed(Lines('b', i, i + 1));
    });
    for (int i = 0; i < 2000; ++i) {
        feed(Lines('a', i, i + 1));
        if (i % 100 == 0) ServeConsole();
    }
    other.join();
    ServeConsole();
    std::map<char, std::string> lines;  // of each thread
    for (std::size_t at = 0; at < view.Content.size();) {
        const std::size_t end = view.Content.find('\n', at) + 1;
        lines[view.Content[at]] += view.Content.substr(at, end - at);
        at = end;
    }
    EXPECT_TRUE(lines['a'] == Lines('a', 0, 2000) && lines['b'] == Lines('b', 0, 2000));
}
