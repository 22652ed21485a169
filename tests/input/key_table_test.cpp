#include <set>

#include "tests/support/fixture.h"
#include "toolkit/core/utf8.h"

// What the value of a key event is, key by key, through the view of window 0.

namespace {

constexpr std::uint64_t kShift = platform::kShiftFlag;
constexpr std::uint64_t kControl = platform::kControlFlag;
constexpr std::uint64_t kOption = platform::kOptionFlag;
constexpr std::uint64_t kAll = 0xFF0000;
constexpr std::uint64_t kHeld[] = {0, kShift, kControl, kOption, kAll & ~kOption, kAll};
constexpr std::int64_t kNothing = -1;  // no event

class KeyTable : public WindowTest {
  protected:
    // The value of the event that a key makes; character 0 stands for none.
    std::int64_t Pressed(std::int64_t keyCode, std::int64_t k, std::uint64_t held = 0) {
        t_CurrentEvent = t_Event();
        View(0).Press({keyCode, k == 0 ? "" : toolkit::CharacterString(k), held});
        return t_NextEvent();
    }
};

// What a character gives on a key without a row.
std::int64_t ByGeneralRule(std::int64_t k) {
    return k <= 255 ? k : k < 63'236 ? kNothing : k - 63'107;
}

struct CharacterRow {
    std::int64_t KeyCode, K, Value;
};

constexpr CharacterRow kByCharacter[] = {
    {0, U'å', 176},  {1, U'‚', 168},  {2, U'∂', 173},  {3, U'ƒ', 130},  {4, U'ª', 131},
    {7, U'≈', 132},  {9, U'√', 253},  {10, 0, 94},     {11, U'∫', 222}, {13, U'∑', 221},
    {14, U'€', 164}, {16, U'Ω', 128}, {17, U'†', 189}, {19, U'“', 163}, {27, U'¿', 166},
    {29, U'≠', 172}, {32, 0, 175},    {33, U'•', 184}, {34, U'⁄', 129}, {35, U'π', 240},
    {35, U'∏', 208}, {38, U'º', 183}, {40, U'∆', 254}, {41, U'œ', 190}, {42, U'‘', 180},
    {43, U'∞', 255}, {44, U'–', 154}, {47, U'…', 191}, {48, 25, 20},    {50, U'≤', 197},
    {50, U'≥', 198},
};

struct AlwaysRow {
    std::int64_t KeyCode, Value;
    bool CursorKey;
};

constexpr AlwaysRow kAlways[] = {
    {51, 127, false}, {71, 27, false}, {76, 13, false}, {115, 2, true},
    {116, 18, true},  {117, 7, false}, {119, 5, true},  {121, 3, true},
    {123, 8, true},   {124, 21, true}, {125, 10, true}, {126, 11, true},
};

constexpr std::int64_t kKeypad[] = {216, 185, 178, 179, 170, 215, 186};  // 0 to 6 with Option

}  // namespace

TEST_F(KeyTable, RowsApplyToTheirCharacterAlone) {
    for (const CharacterRow& row : kByCharacter) {
        for (const std::uint64_t held : kHeld) {
            EXPECT_EQ(Pressed(row.KeyCode, row.K, held), row.Value) << row.KeyCode;
            EXPECT_FALSE(t_CurrentEvent.CursorKeyPressed || t_CurrentEvent.FunctionKeyPressed);
        }
        for (const std::int64_t other : {row.K + 2, std::int64_t{'x'}, std::int64_t{0xF704}}) {
            EXPECT_EQ(Pressed(row.KeyCode, other), ByGeneralRule(other)) << row.KeyCode;
        }
    }
}

TEST_F(KeyTable, SomeKeysGiveTheirValueWhateverTheyProduce) {
    for (const AlwaysRow& row : kAlways) {
        for (const std::int64_t k : {0, 120, 0x20AC, 0xF700}) {
            for (const std::uint64_t held : kHeld) {
                EXPECT_EQ(Pressed(row.KeyCode, k, held), row.Value) << row.KeyCode;
                EXPECT_EQ(t_CurrentEvent.CursorKeyPressed, row.CursorKey) << row.KeyCode;
                EXPECT_FALSE(t_CurrentEvent.FunctionKeyPressed) << row.KeyCode;
            }
        }
    }
}

TEST_F(KeyTable, SomeKeysLookAtTheModifiers) {
    for (const std::uint64_t held : kHeld) {
        const bool option = (held & kOption) != 0;
        EXPECT_EQ(Pressed(24, 0, held), (held & kShift) != 0 ? 96 : 180);
        EXPECT_EQ(Pressed(24, '=', held), '=');
        EXPECT_EQ(Pressed(37, 12, held), option ? 0 : 12);
        EXPECT_EQ(Pressed(37, 'l', held), 'l');
        EXPECT_EQ(Pressed(45, 0, held), option ? 126 : 0);
        EXPECT_EQ(Pressed(45, 'n', held), 'n');
        for (std::int64_t i = 0; i < 7; ++i) {
            EXPECT_EQ(Pressed(82 + i, '0' + i, held), option ? kKeypad[i] : '0' + i);
            EXPECT_EQ(Pressed(82 + i, 0x20AC, held), option ? kKeypad[i] : kNothing);
        }
        EXPECT_FALSE(t_CurrentEvent.CursorKeyPressed || t_CurrentEvent.FunctionKeyPressed);
    }
}

TEST_F(KeyTable, ThreeKeypadKeysRedirectOutputOrGiveACharacter) {
    struct Row {
        std::int64_t KeyCode, Redirection, Character;
    };
    for (const Row& row : {Row{89, 0, 229}, Row{91, 2, 230}, Row{92, 1, 188}}) {
        for (const std::uint64_t held : kHeld) {
            const bool option = (held & kOption) != 0;
            const bool redirect = !option && (held & kControl) != 0;
            t_Windows[0].TextRedirectOutput = 77;
            EXPECT_EQ(Pressed(row.KeyCode, '7', held), redirect ? kNothing
                                                       : option ? row.Character
                                                                : '7');
            EXPECT_EQ(t_Windows[0].TextRedirectOutput, redirect ? row.Redirection : 77);
        }
    }
}

TEST_F(KeyTable, OtherKeysGiveTheirCharactersCodeOrAFunctionKey) {
    struct Row {
        std::int64_t K, Value;
    };
    constexpr Row kRows[] = {
        {0, 0},        {27, 27},      {31, 31},
        {255, 255},    {256, -1},     {0x20AC, kNothing},
        {63'235, -1},  {63'236, 129}, {63'237, 130},
        {0xF747, 196}, {25, 25},      {229, 229},
        {'A', 'A'},    {0x2264, -1},  {0x10FFFF, 1'051'004},
    };
    const std::set<std::int64_t> withRow = {
        0,  1,  2,  3,  4,  7,  9,  10, 11, 13,  14,  16,  17,  19,  24,  27,  29,  32,
        33, 34, 35, 37, 38, 40, 41, 42, 43, 44,  45,  47,  48,  50,  51,  71,  76,  82,
        83, 84, 85, 86, 87, 88, 89, 91, 92, 115, 116, 117, 119, 121, 123, 124, 125, 126};
    for (std::int64_t keyCode = -1; keyCode <= 140; ++keyCode) {
        if (withRow.contains(keyCode)) continue;
        for (const Row& row : kRows) {
            EXPECT_EQ(Pressed(keyCode, row.K), row.Value) << keyCode;
            EXPECT_EQ(t_CurrentEvent.FunctionKeyPressed, row.K >= 63'236) << keyCode;
        }
    }
    View(0).Press({platform::kNoKeyCode, "Größe", 0});  // the first character counts
    EXPECT_EQ(t_NextEvent(), 'G');
}
