#include "app/file_commands.h"

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
    Write("latin-1", "z\xFC");
    desktop.OpenAnswers = {{Path("utf-8")}, {}, {Path("missing")}, {Path("latin-1")}};
    EXPECT_EQ(Choose(100), "");
    EXPECT_EQ(printer.Text(), "zü\n1");
    EXPECT_EQ(t_FrontWindow(), 9);
    EXPECT_EQ(Choose(100), "");  // cancelled
    const std::string heard = Choose(100);
    EXPECT_TRUE(heard.starts_with("getbinaryfromfile: Error #")) << heard;
    EXPECT_TRUE(heard.ends_with("\nsysbeep.aif") || heard.ends_with("\nbeep")) << heard;
    EXPECT_EQ(printer.Text(), "zü\n1");
    EXPECT_EQ(Choose(100), "");
    EXPECT_EQ(printer.Text(), "zü");
}

TEST_F(FileCommands, SaveWritesTheTextOfTheWindowInFront) {
    t_Print(0, "AB\r");
    toolkit::Poke(t_Windows[0].TextMemoryStart, 138);  // a graphics character
    Write("old", "precious");
    desktop.SaveAnswers = {Path("new"), {}, Path("old"), Path("no folder/new"), Path("printer")};
    EXPECT_EQ(Choose(101), "");
    EXPECT_EQ(Content("new").substr(0, 9), "|B      \n");
    EXPECT_EQ(Choose(101), "");  // cancelled
    EXPECT_EQ(Content("old"), "precious");
    EXPECT_EQ(Choose(101), "");
    EXPECT_EQ(Content("old"), Content("new"));
    const std::string heard = Choose(101);
    EXPECT_TRUE(heard.starts_with("RunFileCommand: Could not write file „" + Path("no folder/new")))
        << heard;
    t_WindowTextView(9)->SetText("Zeile\n");
    t_WindowFront(9);
    EXPECT_EQ(Choose(101), "");
    EXPECT_EQ(Content("printer"), "Zeile\n");
    t_WindowFront(12);  // has no text
    EXPECT_NE(Choose(101), "");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 3);
}
