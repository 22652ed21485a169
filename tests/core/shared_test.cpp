#include "toolkit/core/shared.h"

#include <future>

#include "tests/support/fixture.h"

namespace {

using SharedFields = WindowTest;

// What compiles is not lost.
template <typename List>
concept LosesAChange = requires(List& list) {
    list[0].Title = "x";
}
|| requires(List& list) {
    list[0].Value = 1;
}
|| requires(List& list) {
    list[0] = {};
};
static_assert(!LosesAChange<toolkit::MenuActionList>);
static_assert(!LosesAChange<toolkit::InputQueue>);
static_assert(!LosesAChange<toolkit::EventQueue<t_MenuEvent>>);

}  // namespace

TEST_F(SharedFields, TakeTheOperatorsOfTheirTypes) {
    toolkit::Shared<std::int64_t>& h = t_Windows[0].TextHpos = 40;
    EXPECT_EQ(h += 2, 42);
    EXPECT_EQ(h -= 4.5, 37);
    EXPECT_EQ(h *= -2, -74);
    EXPECT_EQ(h /= 4, -18);
    EXPECT_EQ(h %= 7, -4);
    EXPECT_EQ(h <<= 3, -32);
    EXPECT_EQ(h >>= 1, -16);
    EXPECT_EQ(h &= 0xFF, 240);
    EXPECT_EQ(h |= 3, 243);
    EXPECT_EQ(h ^= 1, 242);
    EXPECT_EQ(h++, 242);
    EXPECT_EQ(h--, 243);
    EXPECT_EQ(++h, 243);
    EXPECT_EQ(--h, 242);
    EXPECT_EQ(h += t_Windows[0].TextVpos, 243);
    EXPECT_EQ(h, 243);
    t_Windows[0].TextColor = 250;
    EXPECT_EQ(t_Windows[0].TextColor += 10, 4);
    EXPECT_EQ(--t_Windows[0].RGBColor.Red, 255);
    t_Windows[0].DrawingRect.X = 0.1;
    EXPECT_EQ(t_Windows[0].DrawingRect.X++, 0.1);
    EXPECT_FALSE(t_Windows[0].Visible &= false);
    t_Windows[0].RGBColor.Blue = 7;
    EXPECT_EQ(t_Windows[0].RGBColor, (t_RGBColor{255, 255, 0, 7}));
}

TEST_F(SharedFields, CountWhatEveryThreadAdds) {
    const auto count = [] {
        for (int i = 0; i < 50'000; ++i) t_Windows[0].PositionX += 1, ++t_Windows[0].PositionY;
    };
    {
        const std::future<void> threads[] = {
            std::async(std::launch::async, count), std::async(std::launch::async, count),
            std::async(std::launch::async, count), std::async(std::launch::async, count)};
    }
    EXPECT_EQ(t_Windows[0].PositionX, 200'000);
    EXPECT_EQ(t_Windows[0].PositionY, 200'000);
}

TEST_F(SharedFields, MenuActionsAreChangedAndRemovedInTheirList) {
    const std::int64_t last = t_MenuActions.size() - 1;
    const t_MenuAction action = t_MenuActions[last];
    for (const std::int64_t index : {last - 1, last + 1, std::int64_t{-1}}) {
        t_MenuActions.Change(index, [](t_MenuAction& entry) { entry.Title = "Laden"; });
    }
    EXPECT_EQ(t_MenuActions[last - 1].Title, "Laden");
    for (const std::int64_t index : {last - 1, last + 1, std::int64_t{-1}}) {
        t_MenuActions.erase(index);
    }
    EXPECT_EQ(t_MenuActions.size(), last);
    EXPECT_EQ(t_MenuActions[last - 1], action);
}
