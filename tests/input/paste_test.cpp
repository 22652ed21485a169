#include <vector>

#include "tests/support/fixture.h"
#include "tests/support/random.h"
#include "toolkit/core/utf8.h"

namespace {

// A line is pasted into a field while some keys wait already.
struct Case {
    std::int64_t Mode, Maximum, LastColumn;
    std::string Preset, Line;
    std::vector<std::int64_t> Ahead;
};

struct Outcome {
    std::string Field, Screen;
    std::int64_t Cursor;
    std::vector<std::int64_t> Left;  // keys that the field did not take

    bool operator==(const Outcome&) const = default;
};

class Pasting : public WindowTest {
  protected:
    // `whole`: as if pasting queued every character.
    Outcome After(const Case& c, bool whole) {
        w = opened;
        t_PrintControl(0, 12);
        w.TextLastColumn = c.LastColumn;
        t_EventQueue.Clear();
        desktop.BoardText = c.Line;
        desktop.OnSleep = [] { Type("\r"); };
        t_InputForm(0, "", c.Preset, true, c.Mode, c.Maximum);
        TypeCodes(c.Ahead);
        whole ? Type(t_FirstLine(t_EncodeEscapes(c.Line))) : t_InputEdit(0, 22);
        std::int64_t key = 0;
        while (key != 13 && key != 27) {
            t_InputEdit(0, 31);
            key = t_CharCode(t_WaitKey(0));
            t_InputEdit(0, key);
        }
        Outcome outcome{w.InputString, ScreenText(0), w.InputCursorPos, {}};
        while (t_EventPending) outcome.Left.push_back(t_NextEvent());
        return outcome;
    }

    // Not one that cancels, or that needs the pasteboard.
    std::int64_t AnyKey() {
        constexpr std::int64_t kKeys[] = {7,   8,   9,   19,  21,  24,  26,  30,  30,  31,
                                          127, 127, '-', '-', ',', '.', 'e', 'E', ' ', 0xE4};
        const std::int64_t any = random.Between(0, 99);
        if (any < 50) return random.Between('0', '2');
        if (any < 80) return kKeys[random.Between(0, std::ssize(kKeys) - 1)];
        const std::int64_t control = any < 90 ? random.Between(0, 31) : 'x';
        return control == 12 || control == 22 || control == 27 ? 'y' : control;
    }

    // Keys that are queued for a line of so many bytes, made by repeating `part`.
    std::int64_t QueuedFor(std::string_view part, std::int64_t mode) {
        std::string line;
        while (line.size() < 1'000'000) line += part;
        desktop.BoardText = line;
        t_EventQueue.Clear();
        t_InputForm(0, "", "", true, mode, 9);
        t_InputEdit(0, 22);
        return t_EventQueue.size();
    }

    t_Window& w = t_Windows[0];
    const t_Window opened = w;
    Random random;
};

}  // namespace

TEST_F(Pasting, LeavesWhatQueuingEveryCharacterWouldLeave) {
    for (int run = 0; run < 20'000; ++run) {
        Case c{random.Between(0, 4), random.Between(0, 8), random.Between(3, 8), "", "", {}};
        if (random.Coin()) c.Preset = "-1";
        for (std::int64_t n = random.Between(0, 3); n > 0 && random.Coin(); --n) {
            c.Ahead.push_back(random.Between(0, 9) == 0 ? 27 : AnyKey());
        }
        for (std::int64_t n = random.Between(0, 40); n > 0; --n) {
            toolkit::AppendCharacter(c.Line, random.Between(0, 99) == 0 ? 0x20AC : AnyKey());
        }
        ASSERT_EQ(After(c, false), After(c, true)) << run;
    }
}

TEST_F(Pasting, QueuesNoMoreThanTheFieldMayTake) {
    EXPECT_LE(QueuedFor("x", 0), 9);
    EXPECT_LE(QueuedFor("ab\t", 0), 20);
    EXPECT_LE(QueuedFor("12-", 2), 20);
    EXPECT_LE(QueuedFor("x-e,E.", 3), 20);
    EXPECT_LE(QueuedFor("y-", 4), 20);
    EXPECT_EQ(QueuedFor("€", 0), 1'000'002 / 3 * 6);  // for whoever reads after the field
}
