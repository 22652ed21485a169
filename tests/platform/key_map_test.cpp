#include "platform/parts/key_map.h"

#include <gtest/gtest.h>

namespace platform::parts {

namespace {

// A press as an X server reported it, with the layout named in the row's comment, and what the
// toolkit is to get. A code of -1: nothing.
struct Row {
    NativeKey Key;
    std::int64_t KeyCode;
    std::string Characters;
    std::uint64_t AddedFlags;
};

const Row kRows[] = {
    {{38, 'a', "a", 0}, 0, "a", 0},                                  // us
    {{29, 'z', "z", 0}, 16, "z", 0},                                 // de: at the place of Y
    {{24, 'a', "a", 0}, 12, "a", 0},                                 // fr: at the place of Q
    {{49, 0xFE52, "", 0}, 10, "", 0},                                // de: dead circumflex
    {{21, 0xFE51, "", 0}, 24, "", 0},                                // de: dead acute
    {{21, 0xFE50, "", kShiftFlag}, 24, "", 0},                       // de: dead grave
    {{49, 0xFE52, "", kControlFlag}, 10, "", 0},                     // de
    {{94, '<', "<", 0}, 50, "<", 0},                                 // de: between Shift and Y
    {{26, 0x20AC, "€", kOptionFlag}, 14, "€", 0},                    // de: AltGr and E
    {{38, 'a', "a", kOptionFlag}, 0, "a", 0},                        // us: Alt
    {{23, 0xFF09, "\t", 0}, 48, "\t", 0},                            //
    {{23, 0xFE20, "", kShiftFlag}, 48, "\x19", 0},                   //
    {{23, 0xFF09, "\t", kShiftFlag}, 48, "\x19", 0},                 // ch: not called backwards
    {{9, 0xFF1B, "\x1B", 0}, 53, "\x1B", 0},                         //
    {{36, 0xFF0D, "\r", 0}, 36, "\r", 0},                            //
    {{104, 0xFF8D, "\r", 0}, 76, "\r", kNumericPadFlag},             //
    {{22, 0xFF08, "\b", 0}, 51, "\x7F", 0},                          //
    {{119, 0xFFFF, "\x7F", 0}, 117, "\uF728", kFnFlag},              //
    {{43, 'h', "\b", kControlFlag}, 4, "\b", 0},                     // de: as the server says
    {{43, 'h', "h", kControlFlag}, 4, "\b", 0},                      // or leaves it
    {{43, 'H', "H", kControlFlag | kShiftFlag}, 4, "\b", 0},         //
    {{65, ' ', std::string(1, '\0'), kControlFlag}, 49, {'\0'}, 0},  //
    {{15, '6', "\x1E", kControlFlag}, 22, "\x1E", 0},                // de: Control-^
    {{67, 0xFFBE, "", 0}, 122, "\uF704", kFnFlag},                   // F1
    {{96, 0xFFC9, "", kShiftFlag}, 111, "\uF70F", kFnFlag},          // F12
    {{0, 0xFFE0, "", 0}, kNoKeyCode, "\uF726", kFnFlag},             // F35
    {{110, 0xFF50, "", 0}, 115, "\uF729", kFnFlag},                  // Home
    {{111, 0xFF52, "", 0}, 126, "\uF700", kFnFlag},                  // Up
    {{79, 0xFF95, "", 0}, 115, "\uF729", kFnFlag},                   // keypad 7, Num Lock off
    {{79, 0xFFB7, "7", 0}, 89, "7", kNumericPadFlag},                // keypad 7, Num Lock on
    {{79, 0xFF95, "", kControlFlag}, 89, "7", kNumericPadFlag},      // the same in both states
    {{80, 0xFFB8, "\x7F", kControlFlag}, 91, "8", kNumericPadFlag},  //
    {{91, 0xFFAC, ",", 0}, 65, ",", kNumericPadFlag},                // de: decimal comma
    {{91, 0xFFAC, ",", kOptionFlag}, 65, ".", kNumericPadFlag},      //
    {{84, 0xFF9D, "", 0}, -1, "", 0},                                // keypad 5, Num Lock off
    {{84, 0xFF0B, "", 0}, 71, "\uF739", kFnFlag},                    // a Clear key
    {{50, 0xFFE1, "", 0}, -1, "", 0},                                // Shift
    {{108, 0xFE03, "", 0}, -1, "", 0},                               // AltGr
    {{66, 0xFFE5, "", 0}, -1, "", 0},                                // Caps Lock
    {{77, 0xFF7F, "", 0}, -1, "", 0},                                // Num Lock
    {{135, 0xFF67, "", 0}, -1, "", 0},                               // Menu
    {{172, 0x1008FF14, "", 0}, -1, "", 0},                           // Play
    {{3, 'x', "x", 0}, kNoKeyCode, "x", 0},                          // places that no key has
    {{UINT32_MAX, 0x1000416, "Ж", 0}, kNoKeyCode, "Ж", 0},           //
};

}  // namespace

TEST(KeyMap, GivesPositionsCharactersAndFlags) {
    for (const Row& row : kRows) {
        SCOPED_TRACE(testing::Message()
                     << row.Key.ScanCode << " " << row.Key.Symbol << " flags " << row.Key.Flags);
        const std::optional<KeyPress> press = MapKey(row.Key);
        ASSERT_EQ(press.has_value(), row.KeyCode >= 0);
        if (!press) continue;
        EXPECT_EQ(press->KeyCode, row.KeyCode);
        EXPECT_EQ(press->Characters, row.Characters);
        EXPECT_EQ(press->ModifierFlags, row.Key.Flags | row.AddedFlags);
    }
}

TEST(KeyMap, MakesControlCharactersOfAllLettersAndNoTwoKeysAlike) {
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        for (const std::uint64_t flags : {kControlFlag, kControlFlag | kOptionFlag}) {
            const auto press = MapKey({38, static_cast<std::uint32_t>(letter), {letter}, flags});
            ASSERT_TRUE(press.has_value());
            EXPECT_EQ(press->Characters, std::string(1, static_cast<char>(letter - 'a' + 1)));
        }
    }
    std::vector<int> seen(128);
    for (std::uint32_t scanCode = 0; scanCode < 300; ++scanCode) {
        const std::int64_t code = MapKey({scanCode, 'x', "x", 0})->KeyCode;
        if (code == kNoKeyCode) continue;
        ASSERT_GE(code, 0);
        ASSERT_LT(code, 128);
        EXPECT_EQ(seen[static_cast<std::size_t>(code)]++, 0) << code;
    }
}

}  // namespace platform::parts
