#include <algorithm>
#include <initializer_list>
#include <utility>

#include "tests/support/fixture.h"

namespace {

// A font with this cell; what it draws does not matter here.
t_Font FontOf(std::int64_t width, std::int64_t height) {
    t_Font font;
    font.Format = 2;
    font.Width = width;
    font.Height = height;
    font.Data = {1};
    return font;
}

void Set(std::int64_t value, std::initializer_list<toolkit::Shared<std::int64_t>*> fields) {
    for (toolkit::Shared<std::int64_t>* const field : fields) *field = value;
}

class InitWindow : public ToolkitTest {
  protected:
    InitWindow() {
        t_InitMemory();
        desktop.ClearPrinted();
    }

    // Sets a window up without a border; the lines after its first one, with * for what each of its
    // own lines begins with.
    std::string Open(std::uint8_t window, std::int64_t bitDepth, std::int64_t width,
                     std::int64_t height, const t_Font& font = EmptyFont(), bool titled = true) {
        std::string lines = Printed(
            [&] { t_InitWindow(window, bitDepth, false, width, height, 0, 0, font, titled); });
        const std::string prefix = "t_InitWindow: GraphicWindow #" + std::to_string(window);
        EXPECT_TRUE(lines.starts_with(prefix + " Start.\n")) << lines;
        lines.erase(0, lines.find('\n') + 1);
        for (std::size_t at = 0; (at = lines.find(prefix, at)) != std::string::npos;) {
            lines.replace(at, prefix.size(), "*");
        }
        return lines;
    }
};

}  // namespace

TEST_F(InitWindow, HandsOutTheDemosBlocks) {
    desktop.Files["MenloBold 16x32.font"] = FontFile(FontOf(16, 32));
    EXPECT_EQ(Printed([] { t_InitWindow(0, 24, 80, 25, 16, "MenloBold 16x32.font"); }),
              "t_InitWindow: GraphicWindow #0 Start.\n"
              "t_InitWindow: GraphicWindow #0 : 1280 x 800 pixel x 24 bit = 3.000,00K video-memory"
              " = $00D12000.\n"
              "t_InitWindow: GraphicWindow #0 End.\n");
    const t_Window& w = t_Windows[0];
    EXPECT_EQ(w.MemoryStart, 0xD1'2000);
    EXPECT_EQ(w.MemoryEnd, 0xFF'FFFF);
    EXPECT_EQ(w.TextMemoryStart, 0xD1'1000);
    EXPECT_EQ(w.TextMemoryEnd, 0xD1'1FFF);
    EXPECT_EQ(toolkit::ColorOffset(w), 2048);
    EXPECT_EQ(t_HighMemory, 0xD1'0FFF);
    EXPECT_TRUE(w.AutoUpdate && t_AutoUpdateRunning);
    EXPECT_EQ(Host(0).Frame().Width, 1280 + 32);
    EXPECT_EQ(Host(0).Frame().Height, 800 + 32 + 28);
    EXPECT_EQ(View(0).Frame(), (platform::Rect{16, 16, 1280, 800}));
}

TEST_F(InitWindow, FillsInTheRecordAndKeepsTheRest) {
    t_Window& w = t_Windows[1];
    // What a set-up leaves as it is, and then what it does not.
    w.Visible = w.TextInverse = w.InputFinished = true;
    w.InputString = "7";
    Set(7, {&w.UpdateDuration, &w.TextDisplayMode, &w.TextCursorLevel, &w.TextRedirectOutput,
            &w.InputMode, &w.InputHpos, &w.InputVpos, &w.InputCursorPos, &w.InputMaxCharacters});
    t_Window expected = w;
    w.IgnoreEvents = w.AutoUpdate = w.ScrollLock = true;
    w.VerticalBlank = false;
    w.TextColor = 1;
    w.RGBColor = t_RGBColor{1, 2, 3, 4};
    Set(99, {&w.UpdateStarted, &w.UpdateFinished, &w.RefreshRate, &w.DrawingMode, &w.PositionX,
             &w.PositionY, &w.LoResOffsetX, &w.LoResOffsetY, &w.LoResMode});
    t_InitWindow(1, 8, false, 100, 50, 5, 6, TestFont(), true);

    expected.Initialized = expected.QuickUpdate = true;
    expected.Window = &Host(1);
    expected.View = &View(1);
    expected.DrawingRect = platform::Rect{0, 0, 100, 50};
    expected.TitleHeight = 28;
    expected.BorderWidth = 5;
    expected.BorderHeight = 6;
    expected.RGBColorBorder = t_RGBColor{255, 84, 84, 84};
    expected.BitDepth = 8;
    expected.Width = 100;
    expected.Height = 50;
    expected.MemoryStart = 0xFF'E400;
    expected.MemoryEnd = 0xFF'FFFF;
    expected.Font = TestFont();
    Set(12, {&expected.TextWidth, &expected.TextLastColumn});
    Set(6, {&expected.TextHeight, &expected.TextLastLine});
    Set(1, {&expected.TextFirstColumn, &expected.TextFirstLine, &expected.TextHpos,
            &expected.TextVpos});
    expected.TextColor = 192;
    expected.TextMemoryStart = 0xFF'E000;
    expected.TextMemoryEnd = 0xFF'E3FF;
    EXPECT_EQ(w, expected);
    EXPECT_EQ(Host(1).Background, (platform::Color{255, 84, 84, 84}));
}

TEST_F(InitWindow, RemembersTheFirstWindowEvenWhenItFails) {
    EXPECT_EQ(Printed([] { t_InitWindow(8, 24, 8, 4, 0, "test.font"); }),
              "t_InitWindow: Window is not a graphic window.\n");
    EXPECT_TRUE(Printed([] {
                    t_InitWindow(0, 24, 80, 25, 16, "no.font");
                }).ends_with("“\nt_InitWindow: Font 'no.font' not found.\n"));
    EXPECT_EQ(t_Windows[0], t_Window());
    EXPECT_EQ(t_FirstWindow, 255);
    EXPECT_FALSE(t_AutoUpdateRunning);
    Open(6, 2, 64, 64);
    EXPECT_EQ(t_FirstWindow, 6);
    Open(0, 8, 64, 64);
    EXPECT_EQ(t_FirstWindow, 6);
}

TEST_F(InitWindow, CorrectsSizes) {
    struct Row {
        std::int64_t BitDepth;
        std::int64_t Width;
        std::int64_t Height;
        std::string Lines;
    };
    const std::string fourBits = "* width with 4 bit depth must be a multiple of 4.\n";
    const std::string oneBit = "* width with 1 bit depth must be a multiple of 8.\n";
    // clang-format off
    const Row rows[] = {
        {8, 31, 8193, "* cannot display 31 horizontal pixel.\n* cannot display 8193 vertical pixel.\n"
                      "* : 1280 x 800 pixel x 8 bit = 1.000,00K"},
        {24, 32, 8192, "* : 32 x 8192 pixel x 24 bit = 768,00K"},
        {32, 8192, 32, "* : 8192 x 32 pixel x 32 bit = 1.024,00K"},
        {4, 81, 32, fourBits + "* : 80 x 32 pixel x 4 bit = 1,25K"},
        {4, 82, 32, fourBits + "* : 80 x 32"},
        {4, 83, 32, fourBits + "* : 84 x 32"},
        {4, 84, 32, "* : 84 x 32"},
        {1, 81, 32, oneBit + "* : 88 x 32 pixel x 1 bit = 0,34K"},
        {1, 88, 32, "* : 88 x 32"},
        {1, 8193, 32, "* cannot display 8193 horizontal pixel.\n* : 1280 x 32"},
    };
    // clang-format on
    for (const Row& row : rows) {
        t_Windows[3] = t_Window();
        const std::string lines = Open(3, row.BitDepth, row.Width, row.Height);
        EXPECT_TRUE(lines.starts_with(row.Lines)) << lines;
        EXPECT_EQ(View(3).Frame().Width, t_Windows[3].Width);
        EXPECT_EQ(View(3).Frame().Height, t_Windows[3].Height);
    }
}

TEST_F(InitWindow, LeavesAWindowThatItRefusesWithoutBlocks) {
    struct Row {
        std::int64_t BitDepth;
        std::int64_t Width;
        std::int64_t Height;
        t_Font Font;
        std::string Lines;
    };
    const Row rows[] = {
        {2, 64, 64, EmptyFont(), "* unsupported 2 bit depth.\n"},
        {33, 31, 64, TestFont(),
         "* cannot display 31 horizontal pixel.\n* unsupported 33 bit depth.\n"},
        {32, 8192, 8192, EmptyFont(),
         "* has not enough graphic-video-memory (16319K available).\n"
         "t_InitWindow: Displaying 8192 x 8192 pixel x 32 bit needs 262.144,00K video-memory.\n"},
        {8, 2048, 4000, FontOf(1, 1),
         "* title will be invisible.\n"
         "* has not enough text-video-memory (8319K available).\n"
         "t_InitWindow: Displaying 2048 x 4000 characters needs 16.000,00K text-video-memory.\n"},
    };
    for (const Row& row : rows) {
        Open(2, 8, 64, 64, TestFont());
        t_Window expected = t_Windows[2];
        const bool titled = row.Lines.find("invisible") == std::string::npos;
        EXPECT_EQ(Open(2, row.BitDepth, row.Width, row.Height, row.Font, titled),
                  "* high memory = $00FFFFFF, graphic block size to delete = $00001000.\n"
                  "* high memory = $00FFFFFF, text block size to delete = $00000C00.\n" +
                      row.Lines);
        expected.Initialized = false;
        expected.MemoryStart = expected.MemoryEnd = -1;
        expected.TextMemoryStart = expected.TextMemoryEnd = -1;
        if (!titled) expected.TitleHeight = 0;
        EXPECT_EQ(t_Windows[2], expected);
        EXPECT_EQ(t_HighMemory, 0xFF'FFFF);
    }
}

TEST_F(InitWindow, UsesTheMemoryToTheLastByteAboveTheReservedOnes) {
    const std::string graphic =
        "t_InitWindow: Displaying 64 x 32 pixel x 8 bit needs 2,00K video-memory.\n";
    const std::string text =
        "t_InitWindow: Displaying 8 x 4 characters needs 0,06K text-video-memory.\n";
    const std::pair<std::int64_t, std::string> rows[] = {
        {2048 + 64, "* : 64 x 32 pixel x 8 bit = 2,00K video-memory = $00010000.\n* End.\n"},
        {2048 + 63, "* has not enough text-video-memory (0K available).\n" + text},
        {2048, "* has not enough text-video-memory (0K available).\n" + text},
        {2047, "* has not enough graphic-video-memory (1K available).\n" + graphic},
        {-1000, "* has not enough graphic-video-memory (0K available).\n" + graphic},
        {-1500, "* has not enough graphic-video-memory (-1K available).\n" + graphic},
    };
    for (const auto& [free, lines] : rows) {
        t_Windows[2] = t_Window();
        t_HighMemory = 65'536 + free;
        EXPECT_EQ(Open(2, 8, 64, 32, TestFont()), lines);
    }
}

TEST_F(InitWindow, KeepsTheBlocksOfAWindowWithoutAView) {
    delegate.t_View02 = nullptr;
    EXPECT_EQ(Open(2, 8, 64, 32, TestFont(), false),
              "t_WindowTitleVisible: Window does not exist.\n"
              "* title will be invisible.\n"
              "* : 64 x 32 pixel x 8 bit = 2,00K video-memory = $00FFF000.\n"
              "* could not be initialized, resource undefined.\n"
              "* End.\n");
    EXPECT_FALSE(t_Windows[2].Initialized);
    EXPECT_EQ(t_Windows[2].Font, EmptyFont());
    EXPECT_EQ(t_Windows[2].TextWidth, 8);
    EXPECT_EQ(t_HighMemory, 0xFF'E3FF);
}

TEST_F(InitWindow, TitlesTheWindowAfterTheBundle) {
    struct Row {
        std::string Bundle;
        std::string Title;
        std::string TitleWithoutText;
    };
    const Row rows[] = {
        {"/Applications/Korvandi.app", "Korvandi", "Korvandi-Grafik"},
        {"Mein Spiel.app.ApP", "Mein Spiel.app", "Mein Spiel.app-Grafik"},
        {"/opt/korvandi.app/bin/spiel", "spiel", "spiel"},
        {"/opt/.app", "", "-Grafik"},
        {"/opt/app", "app", "app"},
    };
    for (const Row& row : rows) {
        desktop.Bundle = row.Bundle;
        Open(4, 8, 64, 64, TestFont());
        EXPECT_EQ(Host(4).Title, row.Title);
        Open(4, 8, 64, 64, FontOf(0, 8));  // a font without cells: no text block either
        EXPECT_EQ(Host(4).Title, row.TitleWithoutText);
        EXPECT_EQ(t_Windows[4].TextWidth, 0);
        EXPECT_EQ(t_Windows[4].TextLastLine, 8);
        Open(4, 8, 64, 64);
        EXPECT_EQ(Host(4).Title, row.TitleWithoutText);
        EXPECT_EQ(t_Windows[4].TextWidth, -1);
        EXPECT_EQ(t_Windows[4].TextLastLine, -1);
        EXPECT_EQ(t_Windows[4].TextMemoryStart, -1);
    }
}

TEST_F(InitWindow, FitsBordersAndTitleBar) {
    desktop.Screen = {0, 0, 1600, 1000};
    t_InitWindow(0, 4, false, 642, 400, -1, -7, EmptyFont(), true);
    EXPECT_EQ(t_Windows[0].BorderWidth, 1600 - 640);
    EXPECT_EQ(t_Windows[0].BorderHeight, 1000 - 400);
    EXPECT_NE(Open(0, 8, 64, 48, EmptyFont(), false).find("* title will be invisible.\n"),
              std::string::npos);
    EXPECT_EQ(Host(0).StyleMask, 0);
    EXPECT_EQ(t_Windows[0].TitleHeight, 0);
    EXPECT_EQ(Host(0).Frame().Height, 48);
}

TEST_F(InitWindow, ClearsPictureAndTextOfTheWindowOnly) {
    t_Window& w = t_Windows[5];
    for (const std::int64_t bitDepth : {1, 4, 8, 16, 24, 32}) {
        SCOPED_TRACE(bitDepth);
        Open(5, bitDepth, 72, 43, TestFont());
        toolkit::FillRun(0, t_Memory.size(), 0xA5);
        w.TextColor = 0x3E;
        t_ClearWindowMemory(5);
        const std::vector<std::uint8_t> picture = PictureBytes(5);
        for (std::size_t i = 0; i < picture.size(); ++i) {
            ASSERT_EQ(picture[i], bitDepth == 32 && i % 4 == 0 ? 255 : 0) << i;
        }
        EXPECT_EQ(ColorsOfLine(5, 5), "3E 3E 3E 3E 3E 3E 3E 3E 3E ");
        EXPECT_EQ(ScreenText(5).find_first_not_of(" \n"), std::string::npos);
        // Nothing but the picture and two bytes for each of 9 x 5 cells was written.
        EXPECT_EQ(std::count(t_Memory.data(), t_Memory.data() + t_Memory.size(), 0xA5),
                  t_Memory.size() - std::ssize(picture) - 90);
    }
    w.BitDepth = 12;
    t_ClearWindowMemory(5);
    EXPECT_EQ(toolkit::Peek(w.MemoryStart), 255);
    EXPECT_EQ(Printed([] { t_ClearWindowMemory(8); }), "");
}
