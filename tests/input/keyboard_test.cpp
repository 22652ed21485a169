#include <thread>

#include "tests/support/fixture.h"
#include "toolkit/core/utf8.h"

// Key presses from the view to the program.

namespace {

class Keyboard : public ToolkitTest {
  protected:
    static void OpenSmall(std::uint8_t n) {
        t_InitWindow(n, 8, false, 32, 32, 0, 0, TestFont(), true);
    }
};

struct ModifierRow {
    std::uint64_t Flag;
    bool t_Event::*Field;
    toolkit::Shared<bool>* LastSeen;  // nullptr: none
};

const ModifierRow kModifiers[] = {
    {platform::kCapsLockFlag, &t_Event::CapsLockPressed, &t_CapsLockPressed},
    {platform::kShiftFlag, &t_Event::ShiftPressed, &t_ShiftPressed},
    {platform::kControlFlag, &t_Event::ControlPressed, &t_ControlPressed},
    {platform::kOptionFlag, &t_Event::OptionPressed, &t_OptionPressed},
    {platform::kCommandFlag, &t_Event::CommandPressed, &t_CommandPressed},
    {platform::kNumericPadFlag, &t_Event::NumericPadPressed, nullptr},
    {platform::kHelpFlag, &t_Event::HelpPressed, nullptr},
    {platform::kFnFlag, &t_Event::FnPressed, &t_FnPressed},
};

void ExpectLastSeen(std::uint64_t flag) {
    for (const ModifierRow& row : kModifiers) {
        EXPECT_TRUE(row.LastSeen == nullptr || *row.LastSeen == (row.Flag == flag)) << row.Flag;
    }
}

t_Event KeyEvent(const std::string& character, std::int64_t value, std::int64_t time) {
    t_Event event;
    event.Kind = 1;
    event.Description = character;
    event.Value = value;
    event.Time = time;
    return event;
}

}  // namespace

TEST_F(Keyboard, APressBecomesAnEventOfItsWindow) {
    desktop.StartTime = 1234.5678;
    t_Event expected = KeyEvent("\x1B", 27, 1'234'567);
    expected.Index = 53;
    expected.Mods = 0x8040;
    expected.HelpPressed = true;
    for (std::uint8_t n = 0; n < 8; ++n) {
        OpenSmall(n);
        EXPECT_EQ(Printed([&] { View(n).Press({53, "\x1B", 0xABCD'8040'1234}); }), "");
        EXPECT_TRUE(t_EventPending);
        expected.Window = n;
        EXPECT_EQ(t_NextEvent(), 27);
        EXPECT_EQ(t_CurrentEvent, expected);
        EXPECT_FALSE(t_EventPending);
        EXPECT_EQ(t_NextEvent(), -1);
        EXPECT_EQ(t_CurrentEvent, expected);
    }
}

TEST_F(Keyboard, QueuedTextBecomesOneEventPerCharacter) {
    desktop.StartTime = 99.9999;
    t_QueueKeys("");
    EXPECT_FALSE(t_EventPending);
    t_QueueKeys("a€");
    EXPECT_TRUE(t_EventPending);
    for (t_Event expected : {KeyEvent("a", 'a', 99'999), KeyEvent("€", 0x20AC, 99'999)}) {
        expected.Window = 1;
        EXPECT_EQ(t_NextEvent(), expected.Value);
        EXPECT_EQ(t_CurrentEvent, expected);
    }
    EXPECT_EQ(t_NextEvent(), -1);
}

TEST_F(Keyboard, ModifiersAreKnownPerEventAndAsLastSeen) {
    OpenSmall(0);
    for (const ModifierRow& row : kModifiers) {
        View(0).Client.flagsChanged(row.Flag | 0xFFFF);
        ExpectLastSeen(row.Flag);
        View(0).Client.flagsChanged(0);
        ExpectLastSeen(0);
        EXPECT_FALSE(t_EventPending);
        View(0).Press({36, "x", row.Flag});
        ExpectLastSeen(row.Flag);
        EXPECT_EQ(t_NextEvent(), 'x');
        EXPECT_EQ(t_CurrentEvent.Mods, static_cast<std::int64_t>(row.Flag >> 16U));
        for (const ModifierRow& other : kModifiers) {
            EXPECT_EQ(t_CurrentEvent.*other.Field, &other == &row);
        }
    }
    View(0).Press({36, "€", platform::kShiftFlag});  // makes no event
    ExpectLastSeen(platform::kShiftFlag);
}

TEST_F(Keyboard, PressesThatReachNoProgramStillHoldAKeyDown) {
    platform::ViewClient& client = View(2).Client;
    const auto pressAndRelease = [&] {
        client.keyDown({36, "x", 0});
        EXPECT_TRUE(t_KeyDown);
        client.keyUp();
        EXPECT_FALSE(t_KeyDown);
    };
    EXPECT_TRUE(client.acceptsFirstResponder());
    t_Windows[2].Initialized = true;
    EXPECT_EQ(Printed(pressAndRelease), "");  // the toolkit is not ready
    t_InitMemory();
    EXPECT_EQ(Printed(pressAndRelease), "viewKeyDown: Graphic window (2) not initialized.\n");
    OpenSmall(2);
    t_Windows[2].IgnoreEvents = true;
    EXPECT_EQ(Printed(pressAndRelease), "");
    EXPECT_TRUE(t_EventQueue.empty());
    t_Windows[2].IgnoreEvents = false;
    EXPECT_EQ(Printed(pressAndRelease), "");
    EXPECT_EQ(t_EventQueue.size(), 1);
}

TEST_F(Keyboard, KeysOfTwoThreadsArriveInOrderAndNoneIsLost) {
    constexpr std::int64_t kEach = 3000;
    OpenSmall(0);
    // Takes the person's keys and queues as many itself, as pasting does.
    std::thread program([] {
        std::int64_t queued = 0;
        std::int64_t pasted = 0;
        std::int64_t typed = 0;
        while (pasted + typed < 2 * kEach) {
            if (queued < kEach) t_QueueKeys(toolkit::CharacterString(32 + queued++));
            if (t_NextEvent() < 0) continue;
            if (t_CurrentEvent.Window == 1) {
                EXPECT_EQ(t_CurrentEvent.Value, 32 + pasted++);
            } else {
                EXPECT_EQ(t_CurrentEvent.Index, 1000 + typed++);
            }
        }
    });
    for (std::int64_t i = 0; i < kEach; ++i) View(0).Press({1000 + i, "x", 0});
    program.join();
    EXPECT_FALSE(t_EventPending);
    EXPECT_TRUE(t_EventQueue.empty());
}
