#include <chrono>
#include <thread>

#include "tests/support/fixture.h"
#include "toolkit/program/menu_choices.h"
#include "toolkit/program/menus.h"
#include "toolkit/program/pixels.h"
#include "toolkit/program/pointer.h"
#include "toolkit/program/waiting.h"
#include "toolkit/program/window_text.h"

namespace {

using Pixels = WindowTest;
using OwnMenus = ToolkitTest;
using WindowText = WindowTest;
using Waiting = ToolkitTest;
using Pointers = WindowTest;

// What a color becomes at a depth, told in the words of the frame.
t_RGBColor Shown(std::int64_t bits, const t_RGBColor& color) {
    const auto mean = static_cast<std::uint8_t>((color.Red + color.Green + color.Blue) / 3);
    switch (bits) {
        case 1:
            return mean >= 128 ? t_PaletteColor(15) : t_PaletteColor(0);
        case 8:
        case 16:
            return {255, mean, mean, mean};
        default:
            return {255, color.Red, color.Green, color.Blue};
    }
}

t_RGBColor InSnapshot(std::int64_t x, std::int64_t y) {
    const std::optional<platform::Picture> picture = t_WindowSnapshot(0);
    const std::uint8_t* const pixel = picture->Bytes.data() + (y * picture->Width + x) * 4;
    return {pixel[0], pixel[1], pixel[2], pixel[3]};
}

}  // namespace

TEST_F(Pixels, AreSetAndReadAtEveryDepthAsFramesShowThem) {
    // Each of them stands in the palette, so that it is itself at 4 bits, too.
    const t_RGBColor colors[] = {t_PaletteColor(9),  t_PaletteColor(10), t_PaletteColor(1),
                                 t_PaletteColor(15), t_PaletteColor(0),  t_PaletteColor(13)};
    for (const std::int64_t bits : {1, 4, 8, 16, 24, 32}) {
        SCOPED_TRACE(bits);
        Open(0, bits, 8, 4);
        korvandi::SetPixels(0, 3, 5, colors);
        korvandi::SetPixel(0, 63, 31, t_PaletteColor(12));
        for (std::int64_t x = 0; x < 12; ++x) {
            const bool set = x >= 3 && x < 9;
            const t_RGBColor expected = set ? Shown(bits, colors[x - 3]) : korvandi::Pixel(0, x, 6);
            EXPECT_EQ(korvandi::Pixel(0, x, 5), expected) << x;
            EXPECT_EQ(InSnapshot(x, 5), expected) << x;
        }
        EXPECT_EQ(InSnapshot(63, 31), Shown(bits, t_PaletteColor(12)));
    }
}

TEST_F(Pixels, OutsideThePictureAreLeftOut) {
    for (const std::int64_t bits : {1, 4, 24}) {
        SCOPED_TRACE(bits);
        Open(0, bits, 8, 4);
        const std::vector<t_RGBColor> row(100, t_PaletteColor(15));
        const std::vector<std::uint8_t> before(t_Memory.data(), t_Memory.data() + t_Memory.size());
        for (const std::int64_t y : {std::int64_t{-1}, std::int64_t{32}, INT64_MAX, INT64_MIN}) {
            korvandi::SetPixels(0, 0, y, row);
            EXPECT_EQ(korvandi::Pixel(0, 0, y).Alpha, 0);
        }
        for (const std::int64_t x : {std::int64_t{-100}, std::int64_t{64}, INT64_MAX, INT64_MIN}) {
            korvandi::SetPixels(0, x, 3, row);
            EXPECT_EQ(korvandi::Pixel(0, x, 3).Alpha, 0);
        }
        EXPECT_TRUE(std::equal(before.begin(), before.end(), t_Memory.data()));
        korvandi::SetPixels(0, -50, 3, row);
        EXPECT_EQ(korvandi::Pixel(0, 49, 3), t_PaletteColor(15));
        EXPECT_EQ(korvandi::Pixel(0, 50, 3), korvandi::Pixel(0, 50, 4));
    }
}

TEST_F(Pixels, OfAWindowWithoutAPictureEarnALine) {
    EXPECT_EQ(Printed([] { korvandi::SetPixel(8, 0, 0, {}); }),
              "SetPixel: Window is not a graphic window.\n");
    EXPECT_EQ(Printed([] { korvandi::SetPixels(1, 0, 0, {}); }),
              "SetPixels: Window #1 not initialized.\n");
    EXPECT_EQ(Printed([] { static_cast<void>(korvandi::Pixel(1, 0, 0)); }),
              "Pixel: Window #1 not initialized.\n");
    t_Windows[0].MemoryStart = toolkit::kHighestAddress - 10;
    korvandi::SetPixels(0, 0, 31, std::vector<t_RGBColor>(64));
    EXPECT_EQ(korvandi::Pixel(0, 0, 31).Alpha, 0);
}

TEST_F(Pointers, AreToldInPixelsOfThePictureAndHeldAtItsEdges) {
    t_InitWindow(0, 24, true, 64, 32, 10, 5, TestFont(), true);
    EXPECT_EQ(korvandi::Mouse(0), korvandi::MouseState());
    View(0).MovePointer({10.5, 6.5, 0, 0});
    EXPECT_EQ(korvandi::Mouse(0), (korvandi::MouseState{true, 0, 31, 0}));
    View(0).MovePointer({73, 37, 3, 0});
    EXPECT_EQ(korvandi::Mouse(0), (korvandi::MouseState{true, 63, 0, 3}));
    View(0).MovePointer({-4, 400, 1, 0});
    EXPECT_EQ(korvandi::Mouse(0), (korvandi::MouseState{false, 0, 0, 1}));
    View(0).MovePointer({20, 20, 0, 0});
    View(0).LeavePointer();
    EXPECT_EQ(korvandi::Mouse(0), (korvandi::MouseState{false, 10, 17, 0}));
    EXPECT_EQ(Printed([] { static_cast<void>(korvandi::Mouse(3)); }),
              "Mouse: Window #3 not initialized.\n");
}

TEST_F(Waiting, EndsAtAnEventOfTheKindsThatWereNamed) {
    using enum korvandi::Events;
    EXPECT_FALSE(korvandi::WaitForEvent(20, Keys | Clicks | MenuChoices));
    t_MouseEventQueue.Append({});
    const std::int64_t before = korvandi::Milliseconds();
    EXPECT_FALSE(korvandi::WaitForEvent(50, Keys | MenuChoices));
    EXPECT_GE(korvandi::Milliseconds(), before + 50);
    EXPECT_TRUE(korvandi::WaitForEvent(50, Clicks));
    EXPECT_TRUE(korvandi::WaitForEvent(0, Keys | Clicks));
    korvandi::Pause(-5);
    EXPECT_LT(korvandi::Milliseconds(), before + 100);
    korvandi::Pause(1000);
    EXPECT_GE(korvandi::Milliseconds(), before + 1050);
}

TEST_F(OwnMenus, AddItemsWhoseChoicesAreTold) {
    const korvandi::MenuItemNumber fine = korvandi::AddMenuItem("Raster", "Fein", "1");
    korvandi::AddMenuSeparator("Raster");
    const korvandi::MenuItemNumber coarse = korvandi::AddMenuItem("Raster", "Grob");
    const korvandi::MenuItemNumber help = korvandi::AddMenuItem("Ablage", "Hilfe");
    EXPECT_EQ(t_MenuItemIndex("Raster", "Grob"), 2);
    EXPECT_EQ(korvandi::TakeMenuChoice(), 0);

    desktop.Choose("Raster", "Grob");
    desktop.Choose("Ablage", "Hilfe");
    desktop.Choose("Raster", "Fein");
    EXPECT_TRUE(korvandi::WaitForEvent(0, korvandi::Events::MenuChoices));
    EXPECT_EQ(korvandi::TakeMenuChoice(), coarse);
    EXPECT_EQ(korvandi::TakeMenuChoice(), help);
    EXPECT_EQ(korvandi::TakeMenuChoice(), fine);
    EXPECT_EQ(korvandi::TakeMenuChoice(), 0);
    EXPECT_FALSE(korvandi::WaitForEvent(0, korvandi::Events::MenuChoices));
    EXPECT_EQ(t_MenuEventQueue.size(), 3);

    korvandi::MarkMenuItem(fine, true);
    korvandi::EnableMenuItem(coarse, false);
    EXPECT_TRUE(t_FindMenu("Raster")->ItemAt(0)->Marked);
    desktop.Choose("Raster", "Grob");
    EXPECT_EQ(korvandi::TakeMenuChoice(), 0);
}

TEST_F(OwnMenus, TellWhatIsWrong) {
    EXPECT_EQ(Printed([] { EXPECT_EQ(korvandi::AddMenuItem("", "Fein"), 0); }),
              "AddMenuItem: An item needs a menu and a title.\n");
    EXPECT_EQ(Printed([] { korvandi::AddMenuSeparator("Nirgends"); }),
              "AddMenuSeparator: Menu not found.\n");
    EXPECT_EQ(Printed([] {
                  korvandi::MarkMenuItem(0, true);
                  korvandi::EnableMenuItem(-7, true);
              }),
              "MarkMenuItem: Item not found.\nEnableMenuItem: Item not found.\n");
}

TEST_F(WindowText, HasATitleAndAWidth) {
    korvandi::SetTitle(0, "Größe");
    EXPECT_EQ(Host(0).Title, "Größe");
    EXPECT_EQ(korvandi::TextWidth(0, "Grö\rße"), 5 * 8);
    EXPECT_EQ(Printed([] { EXPECT_EQ(korvandi::TextWidth(2, "x"), 0); }),
              "TextWidth: Window #2 not initialized.\n");
    EXPECT_EQ(Printed([] { korvandi::SetTitle(9, "x"); }),
              "SetTitle: Window is not a graphic window.\n");
}
