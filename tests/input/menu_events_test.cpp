#include <thread>

#include "platform/thread.h"
#include "tests/support/fixture.h"
#include "toolkit/core/output.h"
#include "toolkit/core/utf8.h"

namespace {

using toolkit::kNoWindow;
using toolkit::Outlets;
using Strings = std::vector<std::string>;

const std::string kHandler = "t_MenuEventHandler: ";
const std::string kNoConsole = kHandler + "System console window is nil, resource undefined.\n";
const std::string kNoPrinter = kHandler + "Virtual printer window is nil, resource undefined.\n";

// Windows 0 and 1 are open, 8 x 4 cells each, 1 in front.
class MenuEvents : public ToolkitTest {
  protected:
    MenuEvents() {
        t_AutoUpdateRunning = true;  // so that no refresh loop is among the background tasks
        for (const std::uint8_t n : {std::uint8_t{0}, std::uint8_t{1}}) {
            t_InitWindow(n, 24, true, 64, 32, 0, 0, TestFont(), true);
            t_WindowFront(n);
        }
    }

    // Has an item with this tag chosen from a menu; gives what was printed, then the sounds.
    std::string Choose(std::int64_t tag) {
        desktop.ClearPlayed();
        std::string heard = Printed([&] {
            t_MenuEventHandler({&menu, "Wahl", false, "ö", 5, tag, {}});
        });
        for (const std::string& sound : desktop.Played()) heard += sound;
        return heard;
    }

    // The same with another window in front; kNoWindow for none.
    std::string Choose(std::int64_t tag, std::uint8_t front) {
        front == kNoWindow ? desktop.ActivateOther() : Host(front).MakeKeyAndOrderFront();
        return Choose(tag);
    }

    platform::headless::HeadlessTextView& TextOf(std::uint8_t window) {
        return dynamic_cast<platform::headless::HeadlessTextView&>(*t_WindowTextView(window));
    }

    platform::Menu menu{"Probe", [] {}};
};

}  // namespace

TEST_F(MenuEvents, EveryChoiceIsQueuedAndTheProgramRunsWhatHasNoAction) {
    for (const auto& [tag, action] :
         {std::pair(0, 200), std::pair(300, 12'345), std::pair(301, 114), std::pair(301, 200)}) {
        t_MenuActions.push_back({tag, action, "", "", "", "", ""});
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
    std::string threads;
    t_MenuHandler = [&threads] { threads += platform::ThreadDescription(); };
    for (int i = 0; i < 2; ++i) {
        Choose(0);
        while (platform::RunningThreads() != 0) std::this_thread::yield();
    }
    EXPECT_EQ(threads,
              "<thread>{number = 2, name = (null)}<thread>{number = 3, name = t_EventMenu}");
}

TEST_F(MenuEvents, WindowsAreShownInFrontAndHidden) {
    struct Row {
        std::int64_t Show, Hide;
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

    for (std::int64_t tag = 217; tag <= 228; ++tag) {
        EXPECT_EQ(Choose(tag), toolkit::Joined(kHandler, "Window #", (tag - 213) / 2,
                                               " not initialized.\nbeep"));
    }
    t_ToolsReady = false;
    EXPECT_EQ(Choose(213), kHandler + "Window #0 not initialized.\nbeep");
}

TEST_F(MenuEvents, CopyingTakesTheWindowInFront) {
    t_Print(0, "A\r\rBC");
    t_PrintSymbol(0, 138, 0xF0, 3, 1);
    desktop.BoardPicture = platform::Picture();
    EXPECT_EQ(Choose(111, 0), "");
    EXPECT_EQ(desktop.BoardText, "A |\r\rBC");
    EXPECT_FALSE(desktop.BoardPicture.has_value());
    EXPECT_EQ(Choose(110, 0), "");
    EXPECT_TRUE(desktop.BoardPicture.has_value());
    EXPECT_EQ(desktop.BoardPicture, t_WindowSnapshot(0));
    EXPECT_FALSE(desktop.BoardText.has_value());
    for (const std::uint8_t n : {std::uint8_t{9}, std::uint8_t{10}}) {
        TextOf(n).Content = toolkit::Joined("Zeile\n\u008A", n);
        EXPECT_EQ(Choose(111, n), "");
        EXPECT_EQ(desktop.BoardText, TextOf(n).Content);
    }
    // What has no text, no picture or is not there leaves the pasteboard as it is.
    const std::optional<std::string> before = desktop.BoardText;
    delegate.SystemConsoleTextView = delegate.VirtualPrinterTextView = nullptr;
    EXPECT_EQ(Choose(111, 10), kNoConsole + "beep");
    EXPECT_EQ(Choose(111, 9), kNoPrinter + "beep");
    for (const std::uint8_t n : {std::uint8_t{8}, std::uint8_t{11}, std::uint8_t{12}, kNoWindow}) {
        EXPECT_EQ(Choose(111, n), "beep");
        EXPECT_EQ(Choose(110, n), "beep");
    }
    EXPECT_EQ(desktop.BoardText, before);
}

TEST_F(MenuEvents, PrinterAndConsoleAreCleared) {
    struct Row {
        std::int64_t Tag;
        std::uint8_t Window;
        platform::TextView* Outlets::*Outlet;
        std::string Missing;
    };
    for (const Row& row : {Row{112, 9, &Outlets::VirtualPrinterTextView, kNoPrinter},
                           Row{114, 10, &Outlets::SystemConsoleTextView, kNoConsole}}) {
        auto& view = TextOf(row.Window);
        view.Content = "x";
        const std::int64_t requests = view.DisplayRequests;
        EXPECT_EQ(Choose(row.Tag), "");
        EXPECT_EQ(view.Content, "");
        EXPECT_EQ(view.DisplayRequests, requests + 1);
        delegate.*row.Outlet = nullptr;
        EXPECT_EQ(Choose(row.Tag), row.Missing + "beep");
    }
}

TEST_F(MenuEvents, TheWindowActionIsForGraphicWindows) {
    EXPECT_EQ(Choose(113), "beep");  // until the program says what it does
    int runs = 0;
    t_MenuWindowProc = [&runs] { ++runs; };
    EXPECT_EQ(Choose(113), "");
    EXPECT_EQ(Choose(113, 8), "beep");
    EXPECT_EQ(Choose(113, kNoWindow), "beep");
    EXPECT_EQ(runs, 1);
}

TEST_F(MenuEvents, DialogsStoreTheirAnswer) {
    t_MenuActions.push_back({100, 100, "Laden", "Was?", "alt.txt", " png, ,jpg,", "alt"});
    t_MenuActions.push_back({101, 101, "Ablegen", "Wo?", "neu.txt", "txt", ""});
    const auto answer = [this](std::int64_t tag) {
        EXPECT_EQ(Choose(tag), "");
        const t_MenuAction action = t_MenuActions[t_MenuActionIndex(tag)];
        return action.FilePath + " > " + action.FileName;
    };
    desktop.OpenAnswers = {{"file:///tmp/Bild 1.png", "/other"}};
    desktop.SaveAnswers = {"/tmp/dir/"};
    EXPECT_EQ(answer(100), "/tmp/Bild 1.png > Bild 1.png");
    EXPECT_EQ(answer(101), "/tmp/dir/ > ");
    const platform::OpenPanel open = desktop.OpenPanelsRun.at(0);
    EXPECT_EQ(open.Prompt + open.Title + open.Message, "ÖffnenLadenWas?");
    EXPECT_EQ(open.FileTypes, (Strings{"png", "jpg"}));
    EXPECT_TRUE(open.FilesAllowed && !open.SeveralAllowed && !open.FoldersAllowed);
    const platform::SavePanel save = desktop.SavePanelsRun.at(0);
    EXPECT_EQ(save.Prompt + save.NameLabel + save.PresetName + save.Title + save.Message,
              "SichernSichern unter:neu.txtAblegenWo?");
    EXPECT_EQ(save.FileTypes, Strings{"txt"});
    EXPECT_EQ(answer(100), " > ");  // both are cancelled
    EXPECT_EQ(answer(101), " > ");

    desktop.OpenAnswers = {{"file:///a", "b"}};
    EXPECT_EQ(t_OpenPanel("", "", "", true, false, true), (Strings{"/a", "b"}));
    const platform::OpenPanel folders = desktop.OpenPanelsRun.back();
    EXPECT_EQ(folders.Prompt, "Wählen");
    EXPECT_TRUE(folders.FileTypes.empty() && folders.SeveralAllowed && folders.FoldersAllowed);
    EXPECT_FALSE(folders.FilesAllowed);
    EXPECT_EQ(t_FileNameOfPath("ohne"), "ohne");
}

TEST_F(MenuEvents, DialogsOfTheProgramRunOnTheMainThread) {
    desktop.OpenAnswers = {{"/tmp/a"}};
    desktop.SaveAnswers = {"file:///tmp/b"};
    std::string chosen;
    const auto program = [&chosen] {
        chosen = t_OpenFileDialog("T", "N", "txt") + t_SaveFileDialog("P", "T", "N", "");
        chosen += t_OpenFileDialog("", "", "");
    };
    startprocess(program, 0);
    EXPECT_TRUE(desktop.ServeUntil([] { return platform::RunningThreads() == 0; }));
    EXPECT_EQ(chosen, "/tmp/a/tmp/b");
    EXPECT_EQ(desktop.OpenPanelsRun.size(), 2U);
}

TEST_F(MenuEvents, ADialogIsWaitedForUntilItsAnswerIsThere) {
    const std::string path(20'000'000, 'p');  // takes a while to store
    desktop.OpenAnswers = {{path}};
    std::atomic<std::int64_t> looks = 0;  // of the program for the answer
    std::atomic<bool> returned = false;
    desktop.OnSleep = [&looks] { ++looks; };
    desktop.OnPanel = [&] {
        const std::int64_t before = looks;
        while (looks < before + 3 && !returned) std::this_thread::yield();
        EXPECT_FALSE(returned);
    };
    startprocess(
        [&] {
            EXPECT_EQ(t_OpenFileDialog("", "", "").size(), path.size());
            returned = true;
        },
        0);
    EXPECT_TRUE(desktop.ServeUntil([] { return platform::RunningThreads() == 0; }));
}

TEST_F(MenuEvents, ExportedTextHasLookAlikesForGraphicsCharacters) {
    std::string codes = "Größe\r€";
    for (std::int64_t code = 126; code <= 161; ++code) codes += toolkit::CharacterString(code);
    EXPECT_EQ(t_ExportText(codes), "Größe\r€~#*#<=>O++++||--++++++++++++--||+=˽¡");
}

TEST_F(MenuEvents, ItemsAreReachedByMenuAndPosition) {
    const auto print = [this](std::string_view title, std::int64_t position) {
        return Printed([&] {
            EXPECT_EQ(t_MenuItemTitle(title, position), "");
            t_MenuItemDelete(title, position);
        });
    };
    const std::string outOfRange =
        "t_MenuItemTitle: Item position out of range\nt_MenuItemDelete: Item position out of "
        "range\n";
    EXPECT_EQ(print("Keins", 0),
              "t_MenuItemTitle: Menu not found.\nt_MenuItemDelete: Menu not found.\n");
    EXPECT_EQ(Printed([] { EXPECT_EQ(t_MenuItemIndex("Keins", "A"), -2); }),
              "t_MenuItemIndex: Menu not found.\n");
    platform::Menu& bar = desktop.Menu.Add("Leiste");
    for (const char* const title : {"A", "B", "A"}) bar.Add({nullptr, title, false, "", 0, 0, {}});
    EXPECT_EQ(t_MenuItemIndex("Leiste", "A"), 0);
    EXPECT_EQ(t_MenuItemIndex("Leiste", "a"), -1);
    for (const std::int64_t position : {-1, 3, 65'534, 65'536}) {
        EXPECT_EQ(print("Leiste", position), outOfRange);
    }
    t_MenuItemDelete("Leiste", 65'535);
    EXPECT_EQ(t_MenuItemTitle("Leiste", 65'535), "B");
    t_MenuItemDelete("Leiste", 0);
    EXPECT_EQ(t_MenuItemTitle("Leiste", 0), "B");
    t_MenuItemDelete("Leiste", 0);
    EXPECT_EQ(print("Leiste", 65'535), outOfRange);
}
