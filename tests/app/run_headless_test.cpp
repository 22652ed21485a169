#include <gtest/gtest.h>

#include <memory>

#include "app/app_delegate.h"
#include "korvandi_headless.h"
#include "platform/platform.h"
#include "tests/support/fixture.h"
#include "tests/support/globals.h"

// A program that is driven by a script.

namespace {

std::vector<std::string> heard;

void Hear(const std::string& what) {
    heard.push_back(toolkit::Joined(what, " at ", korvandi::Mouse(0).X, ",", korvandi::Mouse(0).Y));
}

// Asks for a name, prints it, and ends when its menu item is chosen.
void Greeter() {
    t_InitWindow(0, 24, true, 320, 64, 4, 4, TestFont(), true);
    t_WindowFront(0);
    const korvandi::MenuItemNumber leave = korvandi::AddMenuItem("Gruß", "Leben Sie wohl");
    t_MouseHandler = [] { Hear("click"); };
    t_MenuHandler = [] { Hear("menu"); };
    t_Print(0, "Hallo, " + t_InputForm(0, "Wer? ", "", false, 0, 20) + ".");
    while (korvandi::TakeMenuChoice() != leave) toolkit::SleepMilliseconds(10);
    platform::RunOnMain([] { platform::Current().Pasteboard->SetText("Zettel"); });
    platform::RunOnMain([] { t_WindowTextView(toolkit::kPrinterWindow)->AppendText("Beleg\n"); });
    toolkit::PrintLine("Ende");
}

class RunHeadless : public testing::Test {
  protected:
    static korvandi::Outcome Play(std::function<void()> program, const korvandi::Script& script) {
        ResetGlobals();
        heard.clear();
        const korvandi::Outcome outcome = korvandi::RunHeadless(std::move(program), script);
        delete static_cast<AppDelegate*>(static_cast<toolkit::Outlets*>(t_AppDelegate));
        t_AppDelegate = nullptr;
        return outcome;
    }
};

}  // namespace

TEST_F(RunHeadless, DoesWhatTheScriptSaysAndTellsWhatCameOfIt) {
    const korvandi::Script script = {
        korvandi::Wait{500},          korvandi::Look{0, "asked"},
        korvandi::Keys{"Zoé"},        korvandi::Key{platform::kKeyLeft},
        korvandi::Keys{"x\x7F\r"},    korvandi::Wait{500},
        korvandi::Look{0, "greeted"}, korvandi::Click{0, 7, 5},
        korvandi::Point{0, 319, 63},  korvandi::Choose{"Gruß", "Leben Sie wohl"},
        korvandi::Wait{1000},         korvandi::Keys{"never"},
        korvandi::Look{0, "left"},
    };
    const korvandi::Outcome outcome = Play(Greeter, script);
    EXPECT_TRUE(outcome.Ended);
    EXPECT_EQ(heard, (std::vector<std::string>{"click at 7,5", "menu at 319,63"}));
    EXPECT_NE(ScreenText(0).find("Hallo, Zo"), std::string::npos) << ScreenText(0);
    EXPECT_EQ(outcome.Clipboard, "Zettel");
    EXPECT_EQ(outcome.Printer, "Beleg\n");
    EXPECT_EQ(outcome.Pictures.size(), 3U);
    ASSERT_TRUE(outcome.Pictures.contains("asked") && outcome.Pictures.contains("greeted") &&
                outcome.Pictures.contains("left"));
    EXPECT_EQ(outcome.Pictures.at("asked").Width, 320);
    EXPECT_NE(outcome.Pictures.at("asked"), outcome.Pictures.at("greeted"));
    EXPECT_EQ(outcome.Pictures.at("greeted"), t_WindowImage(0));
    EXPECT_EQ(outcome.Pictures.at("greeted"), outcome.Pictures.at("left"));
    EXPECT_TRUE(outcome.Output.ends_with("Ende\napplicationWillTerminate: Called.\n"))
        << outcome.Output;
    EXPECT_TRUE(outcome.Console.ends_with("Ende\n")) << outcome.Console;
    EXPECT_EQ(Play(Greeter, script).Output, outcome.Output);
}

TEST_F(RunHeadless, EndsTheProgramWhereItSleepsWhenTheScriptIsOver) {
    int sleeps = 0;
    bool cleaned = false;
    const auto program = [&] {
        const std::unique_ptr<bool, void (*)(bool*)> atEnd(&cleaned,
                                                           [](bool* flag) { *flag = true; });
        while (true) {
            ++sleeps;
            toolkit::SleepMilliseconds(10);
        }
    };
    EXPECT_FALSE(Play(program, {korvandi::WaitSleeps{2}, korvandi::Wait{50}}).Ended);
    EXPECT_EQ(sleeps, 7);
    EXPECT_TRUE(cleaned);
    sleeps = 0;
    EXPECT_FALSE(Play(program, {}).Ended);
    EXPECT_EQ(sleeps, 1);
}

// What a person answers, and what the screen shows.
TEST_F(RunHeadless, AnswersPanelsAndTakesAPictureOfAllWindows) {
    std::vector<std::string> answers;
    const auto program = [&answers] {
        t_InitWindow(0, 24, true, 320, 64, 4, 4, TestFont(), true);
        t_InitWindow(1, 24, true, 160, 32, 0, 0, TestFont(), true);
        t_WindowSize(0, 100, 100, -1, -1);
        t_WindowSize(1, 300, 130, -1, -1);
        t_WindowFront(0);
        t_WindowFront(1);
        t_ColorBorder(0, 1);
        t_Print(1, "Vorne");
        toolkit::SleepMilliseconds(10);
        answers = {t_OpenFileDialog("", "", "txt"), t_OpenFileDialog("", "", "txt"),
                   t_SaveFileDialog("a.txt", "", "", "txt"), t_SaveFileDialog("a.txt", "", "", "")};
        toolkit::SleepMilliseconds(10);
    };
    const korvandi::Script script = {
        korvandi::LookAtScreen{"screen"},
        korvandi::AnswerOpen{{"/a/b.txt"}},
        korvandi::AnswerSave{},
        korvandi::AnswerSave{"/a/c.txt"},
        korvandi::Wait{10},
        korvandi::Choose{"Bearbeiten", "Text kopieren"},
        korvandi::Wait{2000},
    };
    const korvandi::Outcome outcome = Play(program, script);
    EXPECT_EQ(answers, (std::vector<std::string>{"/a/b.txt", "", "", "/a/c.txt"}));
    EXPECT_EQ(outcome.Clipboard, "Vorne");
    ASSERT_TRUE(outcome.Pictures.contains("screen"));
    const platform::Picture& screen = outcome.Pictures.at("screen");
    // Window 0 lies from 100 to 428 and window 1 from 300 to 460; 16 pixels around them.
    EXPECT_EQ(screen.Width, 460 - 100 + 32);
    EXPECT_EQ(screen.Height, 72 + 32);
    const auto colorAt = [&screen](std::int64_t x, std::int64_t y) {
        const std::uint8_t* const pixel = screen.Bytes.data() + (y * screen.Width + x) * 4;
        return std::vector<int>(pixel, pixel + 4);
    };
    EXPECT_EQ(colorAt(0, 0), colorAt(17, 15)) << "the ground";
    EXPECT_NE(colorAt(16, 16), colorAt(0, 0)) << "the border of the window at the back";
    EXPECT_NE(colorAt(16, 16), colorAt(20, 20)) << "and its picture";
    EXPECT_EQ(screen.Bytes.size(), static_cast<std::size_t>(screen.Width * screen.Height * 4));
}
