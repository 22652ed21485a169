#include <atomic>
#include <chrono>
#include <thread>

#include "tests/support/fixture.h"

namespace {

using platform::Rect;

constexpr std::uint8_t kTextWindows[] = {8, 9, 10};

class Placement : public ToolkitTest {
  protected:
    Placement() {
        t_InitMemory();
        t_InitWindow(0, 8, true, 1280, 800, 24, 16, TestFont(), true);
        desktop.ClearPrinted();
    }

    static platform::headless::HeadlessTextView& TextOf(std::uint8_t window) {
        return dynamic_cast<platform::headless::HeadlessTextView&>(*t_WindowTextView(window));
    }

    platform::ScrollView& Scroll(std::uint8_t window) {
        if (window == 8) return *delegate.PasteboardScrollView;
        return window == 9 ? *delegate.VirtualPrinterScrollView : *delegate.SystemConsoleScrollView;
    }

    // The values of all codes and, behind them, of three that are none.
    static std::vector<std::int64_t> Codes(std::uint8_t window) {
        std::vector<std::int64_t> values;
        for (std::int64_t code = 0; code <= 21; ++code) {
            values.push_back(t_WindowPos(window, code));
        }
        values.push_back(t_WindowPos(window, -1));
        values.push_back(t_WindowPos(window, 1000));
        return values;
    }
};

using Values = std::vector<std::int64_t>;

}  // namespace

TEST_F(Placement, MeasuresAGraphicWindowByItsRecord) {
    t_Window& w = t_Windows[0];
    w.TextFirstColumn = 3;
    w.TextLastColumn = 70;
    w.TextFirstLine = 2;
    w.TextLastLine = 20;
    Host(0).SetFrame({-0.9, 60.9, 2000, 1000});
    EXPECT_EQ(Codes(0), (Values{3,   2, 70,  20,   68,   19, 160, 100, 1280, 800, 1328, 832,
                                860, 0, 160, 1920, 1080, 28, 24,  16,  60,   0,   0,    0}));
    t_WindowTitleVisible(0, false);
    EXPECT_EQ(t_WindowPos(0, 17), 0);
    EXPECT_EQ(t_WindowPos(0, 12), 832);
    EXPECT_EQ(t_WindowPos(0, 9), 800);
}

TEST_F(Placement, MeasuresOtherWindowsByTheirFrame) {
    Values values = {0,   0,  699, 499,  700,  500, 700, 500, 700, 472, 700, 472,
                     500, 10, 560, 1920, 1080, 28,  0,   0,   20,  0,   0,   0};
    for (std::uint8_t window = 8; window <= 12; ++window) {
        Host(window).SetFrame({10.9, 20.9, 700.9, 500.9});
        EXPECT_EQ(Codes(window), values) << int(window);
    }
    // Before the toolkit is ready a graphic window is one of them, but has no text area.
    t_ToolsReady = false;
    Host(0).SetFrame({10.9, 20.9, 700.9, 500.9});
    std::fill_n(values.begin(), 8, 0);
    EXPECT_EQ(Codes(0), values);
}

TEST_F(Placement, SizesAGraphicWindowAroundItsView) {
    t_WindowSize(0, 10, 20, 2560, 1600);
    EXPECT_EQ(Host(0).Frame(), (Rect{10, 20, 2560 + 48, 1600 + 32 + 28}));
    EXPECT_EQ(View(0).Frame(), (Rect{24, 16, 2560, 1600}));
    EXPECT_EQ(t_WindowPos(0, 8), 1280);
    EXPECT_EQ(t_WindowPos(0, 9), 800);
    t_WindowSize(0, -1, 5, -1, 900);
    EXPECT_EQ(Host(0).Frame(), (Rect{10, 5, 1280 + 48, 900 + 32 + 28}));
    t_WindowSize(0, -1, -1, -1, -1);
    EXPECT_EQ(Host(0).Frame(), (Rect{10, 5, 1328, 860}));
    EXPECT_EQ(View(0).Frame(), (Rect{24, 16, 1280, 800}));

    EXPECT_EQ(Printed([] { t_WindowSize(3, 1, 2, 300, 400); }),
              "t_WindowSize: Window #3 not initialized.\n");
    EXPECT_EQ(Host(3).Frame(), (Rect{0, 0, 640, 508}));
    t_ToolsReady = false;
    EXPECT_EQ(Printed([] { t_WindowSize(0, 1, 2, 300, 400); }),
              "t_WindowSize: Window #0 not initialized.\n");
    EXPECT_EQ(Host(0).Frame(), (Rect{10, 5, 1328, 860}));
}

TEST_F(Placement, SizesTheOtherWindowsAndTheirScrollViews) {
    for (const std::uint8_t window : kTextWindows) {
        SCOPED_TRACE(int(window));
        const Rect scroll = Scroll(window).Frame();
        const Rect frame = Host(window).Frame();
        t_WindowSize(window, -1, -1, -1, -1);
        EXPECT_EQ(Scroll(window).Frame(), scroll);
        EXPECT_EQ(Host(window).Frame(), frame);
        t_WindowSize(window, 30, 40, 500, 300);
        EXPECT_EQ(Host(window).Frame(), (Rect{30, 40, 500, 328}));
        EXPECT_EQ(Scroll(window).Frame(), (Rect{scroll.X, scroll.Y, 460, 223}));
        t_WindowSize(window, -1, 41, 0, 400);
        EXPECT_EQ(Host(window).Frame(), (Rect{30, 41, 0, 428}));
        EXPECT_EQ(Scroll(window).Frame(), (Rect{scroll.X, scroll.Y, 460, 323}));
        t_WindowSize(window, -1, -1, 500, 0);
        EXPECT_EQ(Host(window).Frame(), (Rect{30, 41, 500, 28}));
        EXPECT_EQ(Scroll(window).Frame(), (Rect{scroll.X, scroll.Y, 460, 323}));
        EXPECT_FALSE(Host(window).IsVisible());
        t_WindowVisible(window, true);
        t_WindowVisible(12, true);
        t_WindowSize(window, -1, -1, 500, -1);
        EXPECT_EQ(desktop.Order.back(), &Host(window));  // one that is shown comes to the front
        EXPECT_EQ(Scroll(window).Frame(), (Rect{scroll.X, scroll.Y, 460, 323}));
    }
    for (const std::uint8_t window : {std::uint8_t{11}, std::uint8_t{12}}) {
        t_WindowSize(window, 30, 40, 500, 300);
        t_WindowSize(window, -1, -1, 600, -1);
        EXPECT_EQ(Host(window).Frame(), (Rect{30, 40, 600, 328}));
    }
}

TEST_F(Placement, ShowsAndHidesWindows) {
    for (std::uint8_t window = 0; window <= 12; ++window) {
        t_WindowVisible(window, true);
        EXPECT_EQ(desktop.Order.back(), &Host(window));
        EXPECT_TRUE(Host(window).IsVisible() && (window > 7 || t_Windows[window].Visible));
        EXPECT_EQ(desktop.ActiveWindow(), &Host(0));  // the keys stay where they were
    }
    for (std::uint8_t window = 0; window <= 12; ++window) {
        t_Window& w = t_Windows[window & 7U];
        w.UpdateDuration = 5;
        t_WindowFront(window);
        EXPECT_EQ(desktop.ActiveWindow(), &Host(window));
        t_WindowVisible(window, false);
        EXPECT_FALSE(Host(window).IsVisible() || (window < 8 && w.Visible));
        EXPECT_EQ(w.UpdateDuration, window < 8 ? 0 : 5);
    }
}

TEST_F(Placement, FetchesThePasteboardsTextWhenItIsShown) {
    TextOf(8).DisplayRequests = 0;
    desktop.BoardText = "Zwischenablage";
    TextOf(9).Content = "Drucker";
    for (const std::uint8_t window : kTextWindows) {
        t_WindowVisible(window, true);
        EXPECT_EQ(TextOf(window).DisplayRequests, 1);
    }
    EXPECT_EQ(TextOf(9).Content, "Drucker");
    desktop.BoardText.reset();
    t_WindowVisible(8, false);
    EXPECT_EQ(TextOf(8).Content, "Zwischenablage");
    t_WindowVisible(8, true);
    EXPECT_EQ(TextOf(8).Content, "");
}

TEST_F(Placement, WarnsOfATextWindowWithoutItsText) {
    delegate.PasteboardTextView = nullptr;
    delegate.VirtualPrinterTextView = nullptr;
    delegate.SystemConsoleTextView = nullptr;
    const std::string names[] = {"Pasteboard", "Virtual printer", "System console"};
    for (const std::uint8_t window : kTextWindows) {
        const std::string line =
            "t_WindowVisible: " + names[window - 8] + " window is nil, resource undefined.\n";
        EXPECT_EQ(Printed([&] { t_WindowVisible(window, true); }), line);
        EXPECT_FALSE(Host(window).IsVisible());
        EXPECT_EQ(Printed([&] { t_WindowFront(window); }), line);
        EXPECT_EQ(desktop.ActiveWindow(), &Host(window));
    }
    EXPECT_EQ(desktop.Played(), std::vector<std::string>(6, "beep"));
}

TEST_F(Placement, CentersAndTitlesWindows) {
    for (const std::uint8_t window : {std::uint8_t{5}, std::uint8_t{9}}) {
        Rect frame = Host(window).Frame();
        frame.X = (1920 - frame.Width) / 2;
        frame.Y = (1080 - frame.Height) / 2;
        t_WindowCenter(window);
        t_WindowTitle(window, "Größe");
        EXPECT_EQ(Host(window).Title, "Größe");
        t_WindowTitleVisible(window, false);
        EXPECT_EQ(Host(window).StyleMask, 0);
        t_WindowTitleVisible(window, true);
        EXPECT_EQ(Host(window).StyleMask, 7);
        EXPECT_EQ(Host(window).Frame(), frame);
    }
    EXPECT_EQ(t_Windows[5].TitleHeight, 28);
}

TEST_F(Placement, ColorsTheBorderAlone) {
    t_Window expected = t_Windows[0];
    expected.RGBColorBorder = t_RGBColor{255, 128, 64, 0};
    t_ColorBorder(0, 24);
    EXPECT_EQ(t_Windows[0], expected);
    EXPECT_EQ(Host(0).Background, (platform::Color{255, 128, 64, 0}));
}

TEST_F(Placement, KnowsWhichWindowIsWhich) {
    const platform::Window* const others[] = {
        delegate.PasteboardWindow, delegate.VirtualPrinterWindow, delegate.SystemConsoleWindow,
        delegate.PreferencesWindow, delegate.MainWindow};
    const platform::TextView* const texts[] = {delegate.PasteboardTextView,
                                               delegate.VirtualPrinterTextView,
                                               delegate.SystemConsoleTextView, nullptr, nullptr};
    for (std::uint8_t window = 8; window <= 12; ++window) {
        EXPECT_EQ(t_WindowHostWindow(window), others[window - 8]);
        EXPECT_EQ(t_WindowTextView(window), texts[window - 8]);
    }
    for (std::uint8_t window = 0; window <= 12; ++window) {
        EXPECT_EQ(toolkit::WindowNumber(t_WindowHostWindow(window)), window);
        EXPECT_EQ(t_WindowView(window) != nullptr, window < 8);
    }
    EXPECT_EQ(toolkit::WindowNumber(nullptr), 255);
}

TEST_F(Placement, WaitsForTheMainThreadExceptForTitles) {
    std::atomic<std::int64_t> width = 0;
    std::thread other([&] {
        t_WindowSize(11, 1, 2, 333, 444);
        t_WindowFront(11);
        width = t_WindowPos(11, 10);
    });
    EXPECT_TRUE(desktop.ServeUntil([&] { return width != 0; }));
    other.join();
    EXPECT_EQ(width, 333);
    EXPECT_EQ(desktop.ActiveWindow(), &Host(11));

    other = std::thread([] { t_WindowTitle(11, "nachher"); });
    platform::MainQueue& queue = platform::TheMainQueue();
    EXPECT_TRUE(queue.WaitForWork(std::chrono::minutes(1)));
    EXPECT_TRUE(queue.RunNext());  // the look-up of the window
    other.join();                  // ends before the title is set
    EXPECT_NE(Host(11).Title, "nachher");
    EXPECT_TRUE(queue.RunNext());
    EXPECT_EQ(Host(11).Title, "nachher");
}
