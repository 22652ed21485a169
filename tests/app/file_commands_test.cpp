#include "app/file_commands.h"

#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/support/fixture.h"

namespace {

namespace fs = std::filesystem;

class FileCommands : public ToolkitTest {
  protected:
    FileCommands() {
        t_AutoUpdateRunning = true;  // so that no refresh loop is among the background tasks
        t_InitWindow(0, 24, true, 64, 32, 0, 0, TestFont(), true);
        t_WindowFront(0);
        t_MenuHandler = RunFileCommand;
        fs::create_directories(folder);
    }
    ~FileCommands() override { fs::remove_all(folder); }

    // Has the item chosen and its handler run; gives what was printed, then the sounds.
    std::string Choose(std::int64_t tag) {
        desktop.ClearPlayed();
        platform::Menu menu{"Ablage", [] {}};
        std::string heard = Printed([&] {
            t_MenuEventHandler({&menu, "Wahl", false, "", 0, tag, {}});
            desktop.RunBackgroundTask();
        });
        for (const std::string& sound : desktop.Played()) heard += sound;
        return heard;
    }

    std::string Path(const std::string& name) { return folder / name; }
    void Write(const std::string& name, const std::string& content) {
        std::ofstream(Path(name), std::ios::binary) << content;
    }
    std::string Content(const std::string& name) {
        std::ostringstream content;
        content << std::ifstream(Path(name), std::ios::binary).rdbuf();
        return content.str();
    }

    const fs::path folder = fs::path(testing::TempDir()) / "korvandi file commands ü%20";
};

}  // namespace

TEST_F(FileCommands, OpenShowsATextInThePrinter) {
    const platform::TextView& printer = *t_WindowTextView(9);
    Write("utf-8", "zü\n1");
    Write("latin-1", "z\xFC\x1A");
    Write("empty", "");
    desktop.OpenAnswers = {{Path("utf-8")}, {}, {Path("latin-1")}, {Path("empty")}};
    EXPECT_EQ(Choose(100), "");
    EXPECT_EQ(printer.Text(), "zü\n1");
    EXPECT_EQ(t_FrontWindow(), 9);
    EXPECT_EQ(Choose(100), "");  // cancelled
    EXPECT_EQ(Choose(100), "");
    EXPECT_EQ(printer.Text(), "zü\x1A");
    EXPECT_EQ(Choose(100), "");
    EXPECT_EQ(printer.Text(), "");
    EXPECT_TRUE(desktop.AlertsRun.empty());
}

TEST_F(FileCommands, OpenSaysWhyAFileIsNotShown) {
    t_WindowTextView(9)->SetText("old");
    Write("picture", std::string("\x89PNG\r\n\x1A\n\0\0", 10));
    struct Row {
        std::string Name;
        std::string Details;
        bool Line;  // of getbinaryfromfile
    };
    for (const Row& row : {Row{"missing", "Die Datei oder ihren Ordner gibt es nicht.", true},
                           Row{"", "Das ist ein Ordner.", true},
                           Row{"picture", "Die Datei enthält keinen Text.", false}}) {
        desktop.OpenAnswers = {{Path(row.Name)}};
        const std::string heard = Choose(100);
        EXPECT_EQ(heard.starts_with("getbinaryfromfile: Error #"), row.Line) << heard;
        EXPECT_TRUE(heard.ends_with("sysbeep.aif") || heard.ends_with("beep")) << heard;
        ASSERT_FALSE(desktop.AlertsRun.empty()) << row.Name;
        EXPECT_EQ(desktop.AlertsRun.back().Message,
                  "„" + row.Name + "“ kann nicht geöffnet werden.");
        EXPECT_EQ(desktop.AlertsRun.back().Details, row.Details);
        EXPECT_EQ(t_WindowTextView(9)->Text(), "old");
    }
}

TEST_F(FileCommands, SaveWritesTheTextOfTheWindowInFront) {
    t_Print(0, "AB\r\r C\r");
    std::int64_t cell = t_Windows[0].TextMemoryStart;
    // A rule, then block graphics, among them the codes of line ends.
    for (const int code : {138, 3, 13, 10, 32, 68}) {
        toolkit::Poke(cell++, static_cast<std::uint8_t>(code));
    }
    desktop.SaveAnswers = {Path("grid"), {}, Path("printer")};
    EXPECT_EQ(Choose(101), "");
    EXPECT_EQ(Content("grid"), "|    D\n\n C\n");
    EXPECT_EQ(Choose(101), "");  // cancelled
    t_WindowTextView(9)->SetText("Zeile  \n\n");
    t_WindowFront(9);
    EXPECT_EQ(Choose(101), "");
    EXPECT_EQ(Content("printer"), "Zeile  \n\n");
    t_WindowFront(12);  // has no text
    EXPECT_NE(Choose(101), "");
}

TEST_F(FileCommands, SaveReplacesAFileWithoutATrace) {
    t_Print(0, "AB");
    Write("old.neu", "somebody's");
    Write("old", "precious");
    fs::permissions(Path("old"), fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("old", Path("link"));
    fs::create_symlink("later", Path("early link"));
    desktop.SaveAnswers = {Path("link"), Path("early link")};
    EXPECT_EQ(Choose(101) + Choose(101), "");
    EXPECT_TRUE(fs::is_symlink(Path("link")));
    EXPECT_EQ(Content("old"), "AB\n");
    EXPECT_EQ(Content("later"), "AB\n");
    EXPECT_EQ(fs::status(Path("old")).permissions(),
              fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(Content("old.neu"), "somebody's");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 5);
}

TEST_F(FileCommands, SaveSaysWhyAFileIsNotWrittenAndTriesAgain) {
    t_Print(0, "AB");
    fs::create_symlink("loop", Path("loop"));
    fs::create_directory(Path("folder"));
    desktop.SaveAnswers = {Path("no folder/x.txt"), Path("loop"), Path("folder"),
                           Path(std::string(300, 'n'))};
    desktop.AlertAnswers = {0, 0, 0};
    const std::string heard = Choose(101);
    EXPECT_TRUE(heard.starts_with("RunFileCommand: Could not write file „" +
                                  Path("no folder/x.txt") + "“: No such file or directory.\n"))
        << heard;
    ASSERT_EQ(desktop.AlertsRun.size(), 4U);
    EXPECT_EQ(desktop.AlertsRun[0].Message, "„x.txt“ konnte nicht gesichert werden.");
    const char* const reasons[] = {"Die Datei oder ihren Ordner gibt es nicht.",
                                   "Der Verweis führt im Kreis.", "Das ist ein Ordner.",
                                   "Der Name ist zu lang."};
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(desktop.AlertsRun[i].Details, reasons[i]);
    EXPECT_EQ(desktop.SavePanelsRun[1].PresetName, "x.txt");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 2);
}

TEST_F(FileCommands, SaveLeavesTheOldFileWholeWhenThereIsNoRoom) {
    t_WindowTextView(9)->SetText(std::string(10'000, 'x'));
    t_WindowFront(9);
    Write("old", "precious");
    desktop.SaveAnswers = {Path("old")};
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{5'000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const std::string heard = Choose(101);
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_NE(heard.find("“: File too large.\n"), std::string::npos) << heard;
    EXPECT_EQ(Content("old"), "precious");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1);
}
