#include <thread>

#include "platform/thread.h"
#include "tests/support/fixture.h"
#include "toolkit/core/output.h"
#include "toolkit/core/utf8.h"

namespace {

using Strings = std::vector<std::string>;

// Windows 0 and 1 are open, 8 x 4 cells each.
class MenuEvents : public ToolkitTest {
  protected:
    MenuEvents() {
        t_AutoUpdateRunning = true;  // so that no refresh loop is among the background tasks
        for (const std::uint8_t n : {std::uint8_t{0}, std::uint8_t{1}}) {
            t_InitWindow(n, 24, true, 64, 32, 0, 0, TestFont(), true);
            t_WindowFront(n);
        }
    }

    // Has an item with this tag chosen from a menu; gives what was printed.
    std::string Choose(std::int64_t tag) {
        desktop.ClearPlayed();
        return Printed([&] { t_MenuEventHandler({&menu, "Wahl", false, "ö", 5, tag, {}}); });
    }

    // The same; what it asks for cannot be done, which sounds the warning.
    std::string Refused(std::int64_t tag) {
        const std::string printed = Choose(tag);
        EXPECT_EQ(desktop.Played(), Strings{"beep"}) << tag;
        return printed;
    }

    platform::headless::HeadlessTextView& TextOf(std::uint8_t window) {
        return dynamic_cast<platform::headless::HeadlessTextView&>(*t_WindowTextView(window));
    }

    platform::Menu menu{"Probe", [] {}};
};

constexpr std::string_view kNoConsole =
    "t_MenuEventHandler: System console window is nil, resource undefined.\n";
constexpr std::string_view kNoPrinter =
    "t_MenuEventHandler: Virtual printer window is nil, resource undefined.\n";

t_MenuAction ActionWithTag(std::int64_t tag, std::int64_t action) {
    t_MenuAction entry;
    entry.Tag = tag;
    entry.Action = action;
    return entry;
}

}  // namespace

TEST_F(MenuEvents, EveryChoiceIsQueuedAndTheProgramRunsWhatHasNoAction) {
    for (const t_MenuAction& entry : {ActionWithTag(0, 200), ActionWithTag(300, 12'345),
                                      ActionWithTag(301, 114), ActionWithTag(301, 200)}) {
        t_MenuActions.push_back(entry);
    }
    EXPECT_EQ(t_MenuActionIndex(0), -1);
    EXPECT_EQ(t_MenuActionIndex(999), -1);
    EXPECT_EQ(t_MenuActionIndex(301), t_MenuActions.size() - 2);
    int runs = 0;
    t_MenuHandler = [&runs] { ++runs; };
    t_MenuEvent expected{3, "Probe", "Wahl", "ö", 5, 0xF6, 0, 7'654'321};
    desktop.StartTime = 7654.3219;
    TextOf(10).Content = "x";
    for (const std::int64_t tag : {0, 99, -7, 300, 301}) {
        t_MenuEventPending = false;
        EXPECT_EQ(Choose(tag), "");
        EXPECT_TRUE(t_MenuEventPending);
        expected.ItemAction = tag;
        EXPECT_EQ(t_MenuEventQueue.Take(), expected);
        EXPECT_EQ(desktop.RunBackgroundTask(), tag < 300) << tag;
    }
    EXPECT_EQ(TextOf(10).Content, "");  // of two entries the first one counts
    EXPECT_TRUE(Host(0).IsVisible());
    t_MenuEventHandler({nullptr, "Wahl", false, "x", 5, 200, {}});
    EXPECT_EQ(t_MenuEventQueue.Take(), t_MenuEvent());
    EXPECT_TRUE(desktop.RunBackgroundTask());
    EXPECT_EQ(runs, 4);
}

TEST_F(MenuEvents, TheProgramsHandlerRunsOnAThreadOfItsOwn) {
    desktop.HoldBackground = false;
    Strings threads;
    t_MenuHandler = [&threads] { threads.push_back(platform::ThreadDescription()); };
    for (int i = 0; i < 2; ++i) {
        Choose(0);
        while (platform::RunningThreads() != 0) std::this_thread::yield();
    }
    EXPECT_EQ(threads, (Strings{"<thread>{number = 2, name = (null)}",
                                "<thread>{number = 3, name = t_EventMenu}"}));
}

TEST_F(MenuEvents, WindowsAreShownInFrontAndHidden) {
    struct Row {
        std::int64_t Show;
        std::int64_t Hide;
        std::uint8_t Window;
    };
    constexpr Row kRows[] = {{205, 206, 12}, {207, 208, 11}, {209, 210, 9}, {211, 212, 8},
                             {229, 230, 10}, {213, 214, 0},  {215, 216, 1}};
    for (const Row& row : kRows) {
        EXPECT_EQ(Choose(row.Show), "");
        EXPECT_TRUE(Host(row.Window).IsVisible());
        EXPECT_EQ(t_FrontWindow(), row.Window);
    }
    for (const Row& row : kRows) {
        EXPECT_EQ(Choose(row.Hide), "");
        EXPECT_FALSE(Host(row.Window).IsVisible());
    }
    for (const Row& row : kRows) Choose(row.Show);
    EXPECT_EQ(Choose(201), "");  // the window in front
    EXPECT_FALSE(Host(1).IsVisible());
    EXPECT_EQ(t_FrontWindow(), 0);
    EXPECT_EQ(Choose(200), "");
    for (const Row& row : kRows) EXPECT_FALSE(Host(row.Window).IsVisible());
    EXPECT_EQ(Choose(201), "t_WindowVisible: Window does not exist.\n");
    EXPECT_EQ(desktop.Played(), Strings());
}

TEST_F(MenuEvents, GraphicWindowsThatAreNotOpenSoundTheWarning) {
    for (std::int64_t tag = 217; tag <= 228; ++tag) {
        const std::int64_t n = (tag - 213) / 2;
        EXPECT_EQ(Refused(tag),
                  toolkit::Joined("t_MenuEventHandler: Window #", n, " not initialized.\n"));
    }
    t_ToolsReady = false;
    EXPECT_EQ(Refused(213), "t_MenuEventHandler: Window #0 not initialized.\n");
    EXPECT_EQ(t_MenuEventQueue.size(), 13);
}

TEST_F(MenuEvents, CopyingTakesTheWindowInFront) {
    t_Print(0, "A\r\rBC");
    t_PrintSymbol(0, 138, 0xF0, 3, 1);
    t_WindowFront(0);
    desktop.BoardPicture = platform::Picture();
    EXPECT_EQ(Choose(111), "");
    EXPECT_EQ(desktop.BoardText, "A |\r\rBC");
    EXPECT_FALSE(desktop.BoardPicture.has_value());
    EXPECT_EQ(Choose(110), "");
    EXPECT_EQ(desktop.BoardPicture, t_WindowSnapshot(0));
    EXPECT_TRUE(desktop.BoardPicture.has_value());
    EXPECT_FALSE(desktop.BoardText.has_value());
    for (const std::uint8_t n : {std::uint8_t{9}, std::uint8_t{10}}) {
        TextOf(n).Content = toolkit::Joined("Zeile\n\u008A", n);
        t_WindowFront(n);
        EXPECT_EQ(Choose(111), "");
        EXPECT_EQ(desktop.BoardText, TextOf(n).Content);
    }
    EXPECT_EQ(desktop.Played(), Strings());

    // What has no text, no picture or is not there leaves the pasteboard as it is.
    const std::optional<std::string> before = desktop.BoardText;
    EXPECT_EQ(Refused(110), "");
    delegate.SystemConsoleTextView = delegate.VirtualPrinterTextView = nullptr;
    EXPECT_EQ(Refused(111), kNoConsole);
    Host(9).MakeKeyAndOrderFront();
    EXPECT_EQ(Refused(111), kNoPrinter);
    for (const std::uint8_t n : {std::uint8_t{8}, std::uint8_t{11}, std::uint8_t{12}}) {
        Host(n).MakeKeyAndOrderFront();
        EXPECT_EQ(Refused(111), "");
    }
    desktop.ActivateOther();
    EXPECT_EQ(Refused(110), "");
    EXPECT_EQ(Refused(111), "");
    EXPECT_EQ(desktop.BoardText, before);
}

TEST_F(MenuEvents, ClearingEmptiesPrinterAndConsole) {
    struct Row {
        std::int64_t Tag;
        std::uint8_t Window;
        platform::TextView* toolkit::Outlets::*Outlet;
        std::string_view Missing;
    };
    const Row rows[] = {{112, 9, &toolkit::Outlets::VirtualPrinterTextView, kNoPrinter},
                        {114, 10, &toolkit::Outlets::SystemConsoleTextView, kNoConsole}};
    for (const Row& row : rows) {
        auto& view = TextOf(row.Window);
        view.Content = "x";
        const std::int64_t requests = view.DisplayRequests;
        EXPECT_EQ(Choose(row.Tag), "");
        EXPECT_EQ(view.Content, "");
        EXPECT_EQ(view.DisplayRequests, requests + 1);
        delegate.*row.Outlet = nullptr;
        EXPECT_EQ(Refused(row.Tag), row.Missing);
    }
}

TEST_F(MenuEvents, TheWindowActionIsForGraphicWindows) {
    EXPECT_EQ(Refused(113), "");  // until the program says what it does
    int runs = 0;
    t_MenuWindowProc = [&runs] { ++runs; };
    EXPECT_EQ(Choose(113), "");
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(desktop.Played(), Strings());
    t_WindowFront(8);
    EXPECT_EQ(Refused(113), "");
    desktop.ActivateOther();
    EXPECT_EQ(Refused(113), "");
    EXPECT_EQ(runs, 1);
}

TEST_F(MenuEvents, DialogsStoreTheirAnswer) {
    t_MenuActions.push_back({100, 100, "Laden", "Was?", "alt.txt", " png, ,jpg,", "alt"});
    t_MenuActions.push_back({101, 101, "Ablegen", "Wo?", "neu.txt", "txt", ""});
    const std::int64_t open = t_MenuActionIndex(100);
    const std::int64_t save = t_MenuActionIndex(101);
    desktop.OpenAnswers = {{"file:///tmp/Bild 1.png", "/other"}};
    desktop.SaveAnswers = {"/tmp/dir/"};
    Choose(100);
    Choose(101);
    EXPECT_EQ(t_MenuActions[open].FilePath, "/tmp/Bild 1.png");
    EXPECT_EQ(t_MenuActions[open].FileName, "Bild 1.png");
    EXPECT_EQ(t_MenuActions[save].FilePath, "/tmp/dir/");
    EXPECT_EQ(t_MenuActions[save].FileName, "");

    const platform::OpenPanel& opened = desktop.OpenPanelsRun.at(0);
    EXPECT_EQ((Strings{opened.Prompt, opened.Title, opened.Message}),
              (Strings{"Öffnen", "Laden", "Was?"}));
    EXPECT_EQ(opened.FileTypes, (Strings{"png", "jpg"}));
    EXPECT_TRUE(opened.FilesAllowed);
    EXPECT_FALSE(opened.SeveralAllowed || opened.FoldersAllowed);
    const platform::SavePanel& saved = desktop.SavePanelsRun.at(0);
    EXPECT_EQ(
        (Strings{saved.Prompt, saved.NameLabel, saved.PresetName, saved.Title, saved.Message}),
        (Strings{"Sichern", "Sichern unter:", "neu.txt", "Ablegen", "Wo?"}));
    EXPECT_EQ(saved.FileTypes, Strings{"txt"});

    Choose(100);  // both are cancelled
    Choose(101);
    for (const std::int64_t index : {open, save}) {
        EXPECT_EQ(t_MenuActions[index].FilePath + t_MenuActions[index].FileName, "");
    }
    EXPECT_EQ(t_MenuEventQueue.size(), 4);

    desktop.OpenAnswers = {{"file:///a", "b"}};
    EXPECT_EQ(t_OpenPanel("", "", "", true, false, true), (Strings{"/a", "b"}));
    const platform::OpenPanel& folders = desktop.OpenPanelsRun.back();
    EXPECT_EQ(folders.Prompt, "Wählen");
    EXPECT_TRUE(folders.FileTypes.empty() && folders.SeveralAllowed && folders.FoldersAllowed);
    EXPECT_FALSE(folders.FilesAllowed);
    EXPECT_EQ(t_FileNameOfPath("ohne"), "ohne");
    EXPECT_EQ(t_FileNameOfPath(""), "");
}

TEST_F(MenuEvents, DialogsOfTheProgramRunOnTheMainThread) {
    desktop.OpenAnswers = {{"/tmp/a"}};
    desktop.SaveAnswers = {"file:///tmp/b"};
    std::string chosen;
    startprocess(
        [&chosen] {
            chosen = t_OpenFileDialog("T", "N", "txt") + " " + t_SaveFileDialog("P", "T", "N", "");
            chosen += t_OpenFileDialog("", "", "");
        },
        0);
    EXPECT_TRUE(desktop.ServeUntil([] { return platform::RunningThreads() == 0; }));
    EXPECT_EQ(chosen, "/tmp/a /tmp/b");
    EXPECT_EQ(desktop.OpenPanelsRun.size(), 2U);
}

TEST_F(MenuEvents, ExportedTextHasLookAlikesForGraphicsCharacters) {
    std::string codes;
    for (std::int64_t code = 126; code <= 161; ++code) codes += toolkit::CharacterString(code);
    EXPECT_EQ(t_ExportText(codes), "~#*#<=>O++++||--++++++++++++--||+=˽¡");
    EXPECT_EQ(t_ExportText("Größe\r€"), "Größe\r€");
}

TEST_F(MenuEvents, ItemsAreReachedByMenuAndPosition) {
    EXPECT_EQ(Printed([] {
                  EXPECT_EQ(t_MenuItemIndex("Keins", "A"), -2);
                  EXPECT_EQ(t_MenuItemTitle("Keins", 0), "");
                  t_MenuItemDelete("Keins", 0);
              }),
              "t_MenuItemIndex: Menu not found.\n"
              "t_MenuItemTitle: Menu not found.\n"
              "t_MenuItemDelete: Menu not found.\n");
    platform::Menu& bar = desktop.Menu.Add("Leiste");
    for (const char* const title : {"A", "B", "A", "C"})
        bar.Add({nullptr, title, false, "", 0, 0, {}});
    EXPECT_EQ(t_MenuItemIndex("Leiste", "A"), 0);
    EXPECT_EQ(t_MenuItemIndex("Leiste", "a"), -1);
    EXPECT_EQ(t_MenuItemTitle("Leiste", 1), "B");
    EXPECT_EQ(t_MenuItemTitle("Leiste", 65'535), "C");
    const auto outOfRange = [](std::int64_t position) {
        EXPECT_EQ(t_MenuItemTitle("Leiste", position), "");
        t_MenuItemDelete("Leiste", position);
    };
    const std::string fault =
        "t_MenuItemTitle: Item position out of range\n"
        "t_MenuItemDelete: Item position out of range\n";
    for (const std::int64_t position : {-1, 4, 65'534, 65'536}) {
        EXPECT_EQ(Printed([&] { outOfRange(position); }), fault);
    }
    t_MenuItemDelete("Leiste", 65'535);
    t_MenuItemDelete("Leiste", 1);
    EXPECT_EQ(bar.NumberOfItems(), 2);
    EXPECT_EQ(t_MenuItemTitle("Leiste", 65'535), "A");
    t_MenuItemDelete("Leiste", 0);
    t_MenuItemDelete("Leiste", 0);
    EXPECT_EQ(Printed([&] { outOfRange(65'535); }), fault);
}
