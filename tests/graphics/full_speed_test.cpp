#include <atomic>
#include <cstdlib>
#include <string>

#include "platform/thread.h"
#include "tests/support/fixture.h"
#include "tests/support/random_font.h"

// A program that draws without pause while the main thread builds frames of all windows and the
// person types, clicks and chooses. Torn frames are allowed, lost memory and races are not.

namespace {

constexpr std::uint8_t kDrawn = 6;    // windows 0 to 5 are drawn in
constexpr std::uint8_t kWindows = 8;  // the others are left alone

std::int64_t Rounds() {
    const char* const wanted = std::getenv("KORVANDI_ROUNDS");
    return wanted == nullptr ? 4000 : std::atoll(wanted);
}

class FullSpeed : public ToolkitTest {
  protected:
    FullSpeed() {
        desktop.HoldBackground = false;
        desktop.KeepOutput = false;
        desktop.KeepPlayed = false;
        fonts = {TestFont(), RandomFont(random, 5, 7), RandomFont(random, 16, 32), EmptyFont()};
    }

    // The program thread's part.
    void Draw() {
        for (std::uint8_t n = 0; n < kWindows; ++n) {
            SetUpAnew(n, n < kDrawn ? TestFont() : EmptyFont());
            if (n < kDrawn) continue;
            guarded[n] = random.Bytes(t_Windows[n].MemoryEnd - t_Windows[n].MemoryStart + 1);
            toolkit::WriteRun(t_Windows[n].MemoryStart, guarded[n]);
        }
        for (std::int64_t round = Rounds(); round > 0; --round) {
            const auto n = static_cast<std::uint8_t>(random.Between(0, kDrawn - 1));
            Act(n, random.Between(0, 11));
        }
        for (std::uint8_t n = kDrawn; n < kWindows; ++n) {
            std::vector<std::uint8_t> bytes(guarded[n].size());
            EXPECT_TRUE(toolkit::ReadRun(t_Windows[n].MemoryStart, bytes));
            EXPECT_EQ(bytes, guarded[n]) << int{n};
        }
        t_AutoUpdateRunning = false;
        done = true;
    }

    void SetUpAnew(std::uint8_t n, const t_Font& font) {
        t_InitWindow(n, random.OneOf({1, 4, 8, 16, 24, 32}), true, random.Between(32, 120),
                     random.Between(32, 120), random.Between(0, 9), 3, font, random.Coin());
        t_WindowFront(n);
    }

    void Act(std::uint8_t n, std::int64_t action) {
        switch (action) {
            case 0:
                return SetUpAnew(n, AnyFont());
            case 1:
                return t_WindowFont(n, AnyFont());
            case 2:
                return t_WindowVisible(n, random.Coin());
            case 3:
                return t_WindowUpdate(n, random.Coin());
            case 4:
                return t_ScrollUp(n);
            case 5:
                return t_ScrollDown(n);
            case 6:
                t_Color(n, random.Between(0, 15));
                t_LoResMode(n, random.Between(0, 3));
                return t_Plot(n, random.Between(0, 12), random.Between(0, 12));
            case 7:
                return t_InvertRect(n, 1, 1, 4, 3);
            case 8:
                static_cast<void>(t_GetScreen(n, "\r"));
                return t_WindowTitle(n, "Fenster");
            case 9:
                while (t_NextEvent() >= 0) {
                }
                return t_MouseEventQueue.Clear();
            default:
                t_DisplayMode(n, random.OneOf({0, 0, 1, 2, 3, 4, 99}));
                return t_Print(n, Text{random.Bytes(40)});
        }
    }

    const t_Font& AnyFont() {
        return fonts[static_cast<std::size_t>(random.Between(0, std::ssize(fonts) - 1))];
    }

    // The person's part, on the main thread.
    void Disturb(Random& hands) {
        constexpr const char* kItems[][2] = {
            {"Bearbeiten", "Text kopieren"},  {"Bearbeiten", "Bild kopieren"},
            {"Bearbeiten", "Konsole leeren"}, {"Fenster", "Vorderstes ausblenden"},
            {"Ablage", "Öffnen …"},           {"Fenster", "Systemkonsole zeigen"}};
        const auto n = static_cast<std::uint8_t>(hands.Between(0, kWindows - 1));
        View(n).Press({hands.Between(0, 50), std::string(1, 'a'), 0});
        View(n).MouseDown({static_cast<double>(hands.Between(0, 90)), 20, 1, 0}, hands.Coin());
        View(n).MouseUp(false);
        const auto& [menu, item] = kItems[hands.Between(0, std::ssize(kItems) - 1)];
        desktop.Choose(menu, item);
        for (std::uint8_t each = 0; each < kWindows; ++each) View(each).SetNeedsDisplay();
    }

    Random random;  // the program thread's
    std::vector<t_Font> fonts;
    std::vector<std::uint8_t> guarded[kWindows];
    std::atomic<bool> done = false;
};

}  // namespace

TEST_F(FullSpeed, DrawAndShowAtTheSameTimeWithoutHarm) {
    std::atomic<int> handled = 0;
    t_MenuHandler = [&handled] { ++handled; };
    t_MouseHandler = [&handled] { ++handled; };
    startprocess([this] { Draw(); }, 0x10'0000);
    Random hands;
    EXPECT_TRUE(desktop.ServeUntil(
        [&] {
            if (!done) Disturb(hands);
            return done && platform::RunningThreads() == 0;
        },
        std::chrono::seconds(250)));
    EXPECT_GT(handled, 0);
    std::int64_t passes = 0;
    for (std::uint8_t n = 0; n < kWindows; ++n) passes += View(n).DisplayPasses;
    EXPECT_GT(passes, 100);
}
