#include <algorithm>
#include <atomic>

#include "platform/thread.h"
#include "tests/support/fixture.h"

namespace {

class StartUp : public ToolkitTest {
  protected:
    // Adds items to the menu of that title, which is made when there is none; an empty title adds a
    // separator.
    void Fill(std::string_view menu, const std::vector<std::string>& titles) {
        platform::Menu* const found = desktop.Menu.Find(menu);
        platform::Menu& filled = found == nullptr ? desktop.Menu.Add(menu) : *found;
        for (const std::string& title : titles) {
            platform::MenuItem item;
            item.Title = title;
            item.Separator = title.empty();
            filled.Add(item);
        }
    }

    // The titles of a menu's items from position `first` on, a bar before each.
    std::string Titles(std::string_view menu, std::int64_t first) {
        std::string titles;
        const platform::Menu& m = *desktop.Menu.Find(menu);
        for (std::int64_t i = first; i < m.NumberOfItems(); ++i) titles += "|" + m.ItemAt(i)->Title;
        return titles;
    }

    std::int64_t Items(std::string_view menu) { return desktop.Menu.Find(menu)->NumberOfItems(); }

    platform::headless::HeadlessTextView& Pasteboard() {
        return dynamic_cast<platform::headless::HeadlessTextView&>(*delegate.PasteboardTextView);
    }
};

}  // namespace

TEST_F(StartUp, SetsUpMemoryTablesAndPasteboardOnce) {
    const std::string noMenu = "t_MenuItemIndex: Menu not found.\n";
    const std::int64_t items = Items("Bearbeiten");
    Pasteboard().Content = "alt";
    EXPECT_EQ(Printed(t_InitMemory),
              "t_InitMemory: Start.\n" + noMenu + noMenu + noMenu + noMenu + noMenu +
                  "t_MenuItemTitle: Menu not found.\nt_MenuItemDelete: Menu not found.\n" + noMenu +
                  noMenu + noMenu + "t_InitMemory: End.\n");
    EXPECT_TRUE(t_MemoryStarted && t_ToolsReady);
    EXPECT_EQ(Items("Bearbeiten"), items);

    EXPECT_EQ(t_Memory.size(), 16'777'231);
    EXPECT_EQ(t_HighMemory, 16'777'215);
    EXPECT_TRUE(std::all_of(t_Memory.data(), t_Memory.data() + t_Memory.size(),
                            [](std::uint8_t byte) { return byte == 255; }));
    for (const t_Window& w : t_Windows) EXPECT_EQ(w, t_Window());
    ASSERT_EQ(t_MenuActions.size(), 37);
    for (std::int64_t i = 0; i < 37; ++i) {
        t_MenuAction action;
        action.Tag = action.Action = i < 32 ? 200 + i : 110 + i - 32;
        EXPECT_EQ(t_MenuActions[i], action);
    }
    EXPECT_EQ(Pasteboard().Content, "");
    EXPECT_FALSE(Pasteboard().AutomaticSubstitutions);
    EXPECT_EQ(Pasteboard().FontFamily, "Menlo");
    EXPECT_EQ(Pasteboard().FontPoints, 12);
    EXPECT_EQ(Pasteboard().DisplayRequests, 1);

    toolkit::Poke(5, 1);
    t_HighMemory = 77;
    Pasteboard().Content = "bleibt";
    EXPECT_EQ(Printed(t_InitMemory), "");
    EXPECT_EQ(toolkit::Peek(5), 1);
    EXPECT_EQ(t_HighMemory, 77);
    EXPECT_EQ(t_MenuActions.size(), 37);
    EXPECT_EQ(Pasteboard().Content, "bleibt");
}

TEST_F(StartUp, SetsUpOnceForThreadsThatAskAtTheSameTime) {
    for (int run = 0; run < 200; ++run) {
        t_MenuActions.Clear();
        t_MemoryStarted = t_ToolsReady = false;
        OnTwoThreads([](int /*thread*/) { t_InitMemory(); });
        ASSERT_TRUE(t_ToolsReady);
        ASSERT_EQ(t_MenuActions.size(), 37) << run;
    }
}

TEST_F(StartUp, CleansTheMenusOfForeignItems) {
    const std::int64_t edit = Items("Bearbeiten");
    const std::int64_t windows = Items("Fenster");
    Fill("Bearbeiten", {"Diktat starten …", "A", "Emoji & Symbole", "Special Characters…", ""});
    Fill("Edit", {"Emoji & Symbols", "B", "Start Dictation…", "", "Emoji & Symbols", "", ""});
    Fill("Fenster", {"Vollbildmodus", "Tile Window to Right of Screen", "C"});
    Fill("Window", {"D", "Tile Window to Left of Screen", "Tile Window to Right of Screen", ""});
    EXPECT_EQ(Printed(t_InitMemory),
              "t_InitMemory: Start.\n"
              "*** Found Window Menu Item Tile Window to Left of Screen\n"
              "*** Found Fenster Menu Item Tile Window to Right of Screen\n"
              "*** Found Window Menu Item Tile Window to Right of Screen\n"
              "*** Found Fenster Menu Item Vollbildmodus\n"
              "t_InitMemory: End.\n");
    EXPECT_EQ(Titles("Bearbeiten", edit), "|A");
    EXPECT_EQ(Titles("Edit", 0), "|B||Emoji & Symbols|");  // one of each title, one separator
    EXPECT_EQ(Titles("Fenster", windows), "|C");
    EXPECT_EQ(Titles("Window", 0), "|D|");
}

TEST_F(StartUp, ReportsAMenuThatIsLeftEmpty) {
    Fill("Edit", {"Start Dictation…"});
    Fill("Window", {});
    EXPECT_EQ(Printed(t_InitMemory),
              "t_InitMemory: Start.\n"
              "t_MenuItemTitle: Item position out of range\n"
              "t_MenuItemDelete: Item position out of range\n"
              "t_InitMemory: End.\n");
}

TEST_F(StartUp, NamesTheProgramThreadAndReachesTheMenusFromIt) {
    std::string description;
    std::atomic<bool> done = false;
    startprocess(
        [&] {
            t_InitMemory();
            description = platform::ThreadDescription();
            done = true;
        },
        65'536);
    ASSERT_TRUE(desktop.ServeUntil([&] { return done.load(); }));
    EXPECT_EQ(description, "<thread>{number = 2, name = Main Program}");
    EXPECT_EQ(t_ProgramStackSize, 65'536);
    EXPECT_FALSE(Pasteboard().AutomaticSubstitutions);
}
