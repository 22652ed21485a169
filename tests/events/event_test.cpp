#include <future>
#include <optional>
#include <vector>

#include "tests/support/fixture.h"
#include "tests/support/random.h"

namespace {

class Events : public ToolkitTest {
  protected:
    Random random;
};

}  // namespace

TEST_F(Events, WaitAsTheyAre) {
    for (int run = 0; run < 2000; ++run) {
        const auto number = [this] {
            return random.OneOf({0, 1, -3, 255, 65'536, INT32_MAX, INT64_MIN, 800'000'000'123});
        };
        t_Event event;
        for (auto* field : {&event.Kind, &event.Index, &event.Value, &event.WindowX, &event.WindowY,
                            &event.ClickX, &event.ClickY, &event.Mods, &event.Time}) {
            *field = random.Between(0, 9) == 0 ? number() : random.Between(0, 255);
        }
        event.Window = random.Byte();
        event.Description = std::string("äöü€😀").substr(0, random.Byte() % 14);
        for (auto* flag : {&event.CloseBox, &event.CapsLockPressed, &event.ShiftPressed,
                           &event.ControlPressed, &event.OptionPressed, &event.CommandPressed,
                           &event.NumericPadPressed, &event.HelpPressed, &event.FnPressed,
                           &event.CursorKeyPressed, &event.FunctionKeyPressed}) {
            *flag = random.Coin();
        }
        t_MouseEventQueue.Append(event);
        ASSERT_EQ(t_MouseEventQueue[0], event);
        ASSERT_EQ(t_MouseEventQueue.Take(), event);
    }
}

TEST_F(Events, OfManyThreadsArriveInOrderAndNoneIsLost) {
    constexpr std::int64_t kEach = 50'000;
    std::vector<std::future<void>> threads;
    for (std::int64_t n = 0; n < 4; ++n) {
        threads.push_back(std::async(std::launch::async, [n] {
            t_Event event;
            event.Index = n;
            for (; event.Value < kEach; ++event.Value) t_MouseEventQueue.Append(event);
        }));
    }
    std::vector<std::int64_t> next(4);
    for (std::int64_t taken = 0; taken < 4 * kEach;) {
        const std::optional<t_Event> event = t_MouseEventQueue.Take();
        if (!event) continue;
        ++taken;
        ASSERT_EQ(event->Value, next.at(static_cast<std::size_t>(event->Index))++);
    }
    EXPECT_FALSE(t_MouseEventPending);
}
