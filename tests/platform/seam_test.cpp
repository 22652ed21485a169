#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <functional>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

#include "platform/platform.h"
#include "tests/platform/seam_platforms.h"

// What every platform does alike, asked of each of them through the seam alone. One executable for
// each platform; the tests run inside the running application, on its main thread.

namespace {

using platform::Current;
using platform::Rect;
using Log = std::vector<std::string>;

// Notes what the platform tells.
class Client : public platform::ApplicationClient {
  public:
    void applicationWillFinishLaunching() override { Told.emplace_back("will launch"); }
    void applicationDidFinishLaunching() override {
        Told.emplace_back("did launch");
        platform::PostToMain([this] { Launched(); });
    }
    void applicationDidBecomeActive() override {}
    void applicationWillResignActive() override {}
    void applicationWillTerminate() override {
        std::cerr << "will terminate\n";
        if (Terminated++ > 0) platform::Application::Leave(3);
        if (WhileTerminating) WhileTerminating();
    }
    bool applicationShouldTerminateAfterLastWindowClosed() override { return EndsWithLastWindow; }
    bool windowShouldClose(platform::Window& /*window*/) override { return true; }
    void windowWillClose(platform::Window& /*window*/) override {}
    void windowDidResize(platform::Window& /*window*/) override { Told.emplace_back("resize"); }
    void titleBarHeightDidChange(std::int64_t /*height*/) override {}
    void lastWindowDidHide() override { Told.emplace_back("last hidden"); }
    void applicationDidSettle() override {}

    std::function<void()> Launched;
    std::function<void()> WhileTerminating;
    bool EndsWithLastWindow = false;
    int Terminated = 0;
    Log Told;
};

Client& TheClient() {
    static auto* const client = new Client;
    return *client;
}

// A view that shows one grey and counts its display passes.
class Drawer : public platform::ViewClient {
  public:
    void awakeFromNib() override { ++Awakened; }
    bool wantsUpdateLayer() override { return true; }
    void updateLayer(platform::Canvas& canvas) override {
        ++Passes;
        platform::Picture& picture = canvas.Buffer();
        picture.Width = picture.Height = 8;
        picture.Bytes.assign(256, 128);
        if (InPass) InPass();
        canvas.Show({0, 8});
    }
    void drawRect(const Rect& /*dirty*/, platform::Canvas& canvas) override { updateLayer(canvas); }
    bool acceptsFirstResponder() override { return true; }
    void keyDown(const platform::KeyPress& /*press*/) override {}
    void keyUp() override {}
    void flagsChanged(std::uint64_t /*modifierFlags*/) override {}
    void mouseDown(const platform::MousePress& /*press*/) override {}
    void rightMouseDown(const platform::MousePress& /*press*/) override {}
    void mouseUp() override {}
    void rightMouseUp() override {}

    int Awakened = 0;
    int Passes = 0;
    std::function<void()> InPass;
};

void Serve() {
    Current().Application->Serve(std::chrono::milliseconds(40));
}

bool ServeUntil(const std::function<bool()>& done) {
    for (int i = 0; i < 250 && !done(); ++i) Serve();
    return done();
}

class Seam : public testing::Test {
  protected:
    Seam() { TheClient().Told.clear(); }

    ~Seam() override {
        for (platform::Window* const window : made) window->OrderOut();
        Serve();
    }

    platform::TextWindowParts MakeText(const platform::TextLayout& layout = {}) {
        const auto parts = windows.MakeTextWindow("Text", 400, 300, layout);
        made.push_back(parts.Host);
        return parts;
    }
    platform::GraphicWindowParts MakePicture() {
        const auto parts = windows.MakeGraphicWindow(drawer);
        made.push_back(parts.Host);
        return parts;
    }

    std::vector<platform::Window*> made;
    // Drawers live as long as their windows, which is as long as the process.
    Drawer& drawer = *new Drawer;
    platform::WindowMaker& windows = *Current().WindowMaker;
};

constexpr platform::TextLayout kLayout = {.Inset = 20,
                                          .RestOfWidth = 40,
                                          .RestOfHeight = 55,
                                          .RulerInset = 24,
                                          .RulerRest = 48,
                                          .RulerHeight = 19,
                                          .RulerGap = 1};

}  // namespace

TEST_F(Seam, ChangesOfStyleLeaveTheFrameAndTheContentFollows) {
    const auto parts = MakeText(kLayout);
    const Rect frame = parts.Host->Frame();
    const double above = frame.Height - 300;
    EXPECT_GT(above, 0);
    EXPECT_EQ(frame.Width, 400);
    EXPECT_EQ(parts.Scroll->Frame(), (Rect{20, 20, 360, 245}));
    EXPECT_EQ(parts.Columns->Frame(), (Rect{24, 266, 352, 19}));
    for (int times = 0; times < 2; ++times) parts.Host->SetStyleMask(platform::kBorderless);
    EXPECT_EQ(parts.Host->Frame(), frame);
    EXPECT_EQ(parts.Scroll->Frame(), (Rect{20, 20, 360, 245 + above}));
    EXPECT_EQ(parts.Columns->Frame(), (Rect{24, 266 + above, 352, 19}));
    EXPECT_EQ(TheClient().Told, Log{"resize"});
    parts.Host->SetStyleMask(platform::kTitledClosableMiniaturizable);
    EXPECT_EQ(parts.Scroll->Frame(), (Rect{20, 20, 360, 245}));

    const auto picture = MakePicture();
    EXPECT_EQ(drawer.Awakened, 1);
    EXPECT_EQ(picture.Area->HostWindow(), picture.Host);
    picture.Area->SetFrameSize(300, 200);
    picture.Area->SetFrameOrigin(7, 9);
    picture.Host->SetStyleMask(platform::kBorderless);
    picture.Host->SetFrame({10, 20, 314, 218});
    EXPECT_EQ(picture.Area->Frame(), (Rect{7, 9, 300, 200}));
}

TEST_F(Seam, HiddenWindowsArePlacedAndSizedAsShownOnes) {
    const auto parts = MakeText();
    EXPECT_EQ(parts.Columns, nullptr);
    platform::Window& window = *parts.Host;
    const Rect screen = window.ScreenFrame();
    for (const bool shown : {false, true}) {
        if (shown) window.OrderFront();
        const Rect frame{30, 40, 420.0 + (shown ? 1 : 0), 350};
        TheClient().Told.clear();
        window.SetFrame(frame);
        EXPECT_EQ(window.Frame(), frame) << shown;
        window.SetFrame({31, 41, frame.Width, frame.Height});
        EXPECT_EQ(TheClient().Told, Log{"resize"}) << "once for the size, not for the place";
    }
    window.SetFrame({0, 0, screen.Width + 100, screen.Height + 60});
    window.Center();
    EXPECT_EQ(window.Frame().X, screen.X);
    EXPECT_EQ(window.Frame().Y + window.Frame().Height, screen.Y + screen.Height);
}

TEST_F(Seam, AWindowWithoutAPlaceIsCentredWhenItIsFirstShown) {
    platform::Window& window = *MakeText().Host;
    Rect frame = window.Frame();
    frame.Width = 500;
    window.SetFrame(frame);  // a size is no place
    EXPECT_FALSE(window.IsVisible());
    window.OrderFront();
    EXPECT_TRUE(window.IsVisible());
    const Rect screen = window.ScreenFrame();
    const Rect shown = window.Frame();
    EXPECT_NEAR(shown.X + shown.Width / 2, screen.X + screen.Width / 2, 1);
    EXPECT_NEAR(shown.Y + shown.Height / 2, screen.Y + screen.Height / 2, 1);
    window.SetFrame({1, 2, 500, shown.Height});
    window.OrderOut();
    window.OrderFront();
    EXPECT_EQ(window.Frame().X, 1);
}

TEST_F(Seam, MarksOfHiddenViewsAreKeptUntilTheyAreShown) {
    const auto parts = MakePicture();
    parts.Area->Display();
    Serve();
    EXPECT_EQ(drawer.Passes, 0);
    parts.Host->MakeKeyAndOrderFront();
    ASSERT_TRUE(ServeUntil([this] { return drawer.Passes > 0; })) << "marked from the start";
    parts.Host->OrderOut();
    Serve();
    drawer.Passes = 0;
    parts.Area->SetNeedsDisplay();
    Serve();
    EXPECT_EQ(drawer.Passes, 0);
    parts.Host->OrderFront();
    EXPECT_TRUE(ServeUntil([this] { return drawer.Passes > 0; }));
    drawer.Passes = 0;
    parts.Area->Display();
    EXPECT_EQ(drawer.Passes, 1) << "at once";
    drawer.InPass = [&] {
        const int passes = drawer.Passes;
        if (passes == 2) parts.Area->Display();
        EXPECT_EQ(drawer.Passes, passes) << "no pass inside a pass";
    };
    parts.Area->Display();
    EXPECT_TRUE(ServeUntil([this] { return drawer.Passes == 3; })) << "but one after it";
}

TEST_F(Seam, TellsWhenTheLastWindowIsHidden) {
    platform::Window* const both[] = {MakeText().Host, MakeText().Host};
    for (platform::Window* const window : both) window->MakeKeyAndOrderFront();
    ASSERT_TRUE(ServeUntil([&] { return Current().Application->ActiveWindow() == both[1]; }));
    TheClient().Told.clear();
    both[1]->OrderOut();
    Serve();
    EXPECT_EQ(TheClient().Told, Log{});
    EXPECT_NE(Current().Application->ActiveWindow(), both[1]);
    both[0]->OrderOut();
    both[0]->OrderOut();
    EXPECT_EQ(TheClient().Told, Log{}) << "not before the current work is done";
    Serve();
    EXPECT_EQ(TheClient().Told, Log{"last hidden"});
    both[0]->OrderFront();
    both[0]->OrderOut();
    both[1]->OrderFront();
    Serve();
    EXPECT_EQ(TheClient().Told, Log{"last hidden"}) << "another one is shown by then";
    both[1]->OrderOut();
    Serve();
}

TEST_F(Seam, ZoomIsBoundedByTheScreenAndForGraphicWindowsAlone) {
    platform::Window& picture = *MakePicture().Host;
    picture.SetStyleMask(platform::kBorderless);
    picture.SetFrame({0, 0, 20, 20});
    EXPECT_GT(picture.LargestZoom(), platform::kLargestZoom);
    for (const double zoom : {2.0, 0.0, -1.0, 1e9}) picture.SetZoom(zoom);
    EXPECT_DOUBLE_EQ(picture.Zoom(), platform::kLargestZoom);
    EXPECT_EQ(picture.Frame(), (Rect{0, 0, 20, 20}));
    picture.SetFrame({0, 0, 20, picture.ScreenFrame().Height / 2});
    EXPECT_DOUBLE_EQ(picture.Zoom(), 2);
    picture.SetZoom(0.5);
    EXPECT_DOUBLE_EQ(picture.Zoom(), 0.5);
    platform::Window& text = *MakeText().Host;
    text.SetZoom(2);
    EXPECT_EQ(text.Zoom(), 1);
    EXPECT_EQ(text.LargestZoom(), 1);
}

TEST_F(Seam, TextsKeepTheirNewestLinesHoweverTheyEnd) {
    platform::TextView& text = *MakeText().Text;
    text.SetText("a\r\nb\rc\nd");
    EXPECT_EQ(text.Text(), "a\r\nb\rc\nd");
    text.SetLineLimit(2);
    EXPECT_EQ(text.Text(), "c\nd");
    text.AppendText("\n");
    EXPECT_EQ(text.Text(), "d\n") << "the empty last line counts";
    text.AppendText("e\r");
    text.AppendText("\n");
    EXPECT_EQ(text.Text(), "e\r\n") << "one line end in two pieces";
    text.SetLineLimit(-1);
    text.AppendText("1\n2\n3\nä");
    EXPECT_EQ(text.Text(), "e\r\n1\n2\n3\nä");
}

TEST_F(Seam, ThePasteboardHoldsOneThing) {
    platform::Pasteboard& board = *Current().Pasteboard;
    board.SetText("Zeile\rä\n");
    EXPECT_EQ(board.Text(), "Zeile\rä\n");
    board.SetPicture({});
    EXPECT_EQ(board.Text(), "Zeile\rä\n") << "no picture";
    platform::Picture picture;
    picture.Width = picture.Height = 2;
    board.SetPicture(picture);
    EXPECT_EQ(board.Text(), "Zeile\rä\n") << "too few bytes";
    picture.Bytes.assign(16, 255);
    board.SetPicture(picture);
    EXPECT_EQ(board.Text(), std::nullopt);
    board.SetText("x");
    board.Clear();
    EXPECT_EQ(board.Text(), std::nullopt);
}

TEST_F(Seam, AnswersWhatTheMachineIsAsked) {
    EXPECT_EQ(Current().Sounds->Named("no such sound"), nullptr);
    EXPECT_NE(Current().Resources->ReadFile("/no/such/file").Error, std::error_code());
    platform::Clock& clock = *Current().Clock;
    const double before = clock.Now();
    clock.Sleep(std::chrono::milliseconds(-500));
    clock.Sleep(std::chrono::milliseconds(10));
    EXPECT_GE(clock.Now(), before + 0.009);
    EXPECT_LT(clock.Now(), before + 5);
}

TEST_F(Seam, ServesTheMainQueueWhileItWaits) {
    std::string order;
    platform::PostToMain([&order] {
        order += 'a';
        platform::PostToMain([&order] { order += 'c'; });
    });
    platform::PostToMain([&order] { order += 'b'; });
    std::thread other([&order] { platform::RunOnMain([&order] { order += 'd'; }); });
    EXPECT_TRUE(ServeUntil([&order] { return order.size() == 4; }));
    other.join();
    EXPECT_EQ(order.find('a'), order.find_first_of("abc"));
    EXPECT_LT(order.find('b'), order.find('c'));
    const auto start = std::chrono::steady_clock::now();
    Serve();
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(39));
}

// The test below ends its process.

using SeamDeathTest = Seam;

TEST_F(Seam, MembersForTheMainThreadEndTheProcessOnOthers) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto parts = MakeText({.RulerHeight = 19});
    platform::View& view = *MakePicture().Area;
    struct Row {
        const char* Name;
        std::function<void()> Call;
    };
    const Row rows[] = {
        {"Serve", [] { Current().Application->Serve({}); }},
        {"SetStyleMask", [&] { parts.Host->SetStyleMask(0); }},
        {"AppendText", [&] { parts.Text->AppendText("x"); }},
        {"SetFrame", [&] { parts.Columns->SetFrame({}); }},
        {"SetNeedsDisplay", [&] { view.SetNeedsDisplay(); }},
        {"RunAlert",
         [] {
             static_cast<void>(Current().Panels->RunAlert({"", "", {"x"}}));
         }},
        {"Clear", [] { Current().Pasteboard->Clear(); }},
    };
    for (const Row& row : rows) {
        const auto line = std::string(row.Name) + ": called on another thread than the main thread";
        EXPECT_DEATH(std::thread(row.Call).join(), line);
    }
}

TEST_F(SeamDeathTest, EndsOnceHoweverItIsAsked) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto endsOnce = testing::ExitedWithCode(0);
    const auto end = [](const std::function<void()>& ask) {
        TheClient().WhileTerminating = [] {
            platform::PostToMain([] { platform::Application::Leave(4); });
            Serve();                                // the queue is closed
            Current().Application->TerminateNow();  // is under way
        };
        ask();
        for (int i = 0; i < 100; ++i) Serve();
        std::cerr << "still there\n";
        platform::Application::Leave(1);
    };
    EXPECT_EXIT(end([] {
                    Current().Application->Terminate();
                    Current().Application->Terminate();
                    std::thread([] { Current().Application->Terminate(); }).join();
                }),
                endsOnce, "will terminate");
    EXPECT_EXIT(end([] { Current().Application->TerminateNow(); }), endsOnce, "will terminate");
    EXPECT_EXIT(end([] {
                    TheClient().EndsWithLastWindow = true;
                    platform::Window& window =
                        *Current().WindowMaker->MakeTextWindow("Text", 400, 300, {}).Host;
                    window.OrderFront();
                    window.OrderOut();
                }),
                endsOnce, "will terminate");
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS();
    StartPlatform(argc, argv);
    static int status = 1;
    TheClient().Launched = [] {
        const bool inOrder = TheClient().Told == Log{"will launch", "did launch"};
        status = RUN_ALL_TESTS() == 0 && inOrder ? 0 : 1;
        std::fflush(stdout);
        platform::Application::Leave(status);
    };
    Current().Application->Run(TheClient());
    platform::Application::Leave(2);  // the application ended before its tests did
}
