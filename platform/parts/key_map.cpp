#include "platform/parts/key_map.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace platform::parts {

namespace {

struct PositionRow {
    std::uint8_t Kernel;   // the kernel's number of the key
    std::int16_t KeyCode;  // the toolkit's
};

// Keys of the main block and the keypad. The names are those of a US keyboard.
constexpr PositionRow kPositionRows[] = {
    {1, 53},    // Escape
    {2, 18},    // 1
    {3, 19},    // 2
    {4, 20},    // 3
    {5, 21},    // 4
    {6, 23},    // 5
    {7, 22},    // 6
    {8, 26},    // 7
    {9, 28},    // 8
    {10, 25},   // 9
    {11, 29},   // 0
    {12, 27},   // minus
    {13, 24},   // =
    {14, 51},   // Backspace
    {15, 48},   // Tab
    {16, 12},   // Q
    {17, 13},   // W
    {18, 14},   // E
    {19, 15},   // R
    {20, 17},   // T
    {21, 16},   // Y
    {22, 32},   // U
    {23, 34},   // I
    {24, 31},   // O
    {25, 35},   // P
    {26, 33},   // [
    {27, 30},   // ]
    {28, 36},   // Return
    {30, 0},    // A
    {31, 1},    // S
    {32, 2},    // D
    {33, 3},    // F
    {34, 5},    // G
    {35, 4},    // H
    {36, 38},   // J
    {37, 40},   // K
    {38, 37},   // L
    {39, 41},   // ;
    {40, 39},   // '
    {41, 10},   // left of 1: the section key of an ISO keyboard
    {43, 42},   // backslash
    {44, 6},    // Z
    {45, 7},    // X
    {46, 8},    // C
    {47, 9},    // V
    {48, 11},   // B
    {49, 45},   // N
    {50, 46},   // M
    {51, 43},   // ,
    {52, 47},   // .
    {53, 44},   // /
    {55, 67},   // keypad *
    {57, 49},   // Space
    {71, 89},   // keypad 7
    {72, 91},   // keypad 8
    {73, 92},   // keypad 9
    {74, 78},   // keypad -
    {75, 86},   // keypad 4
    {76, 87},   // keypad 5
    {77, 88},   // keypad 6
    {78, 69},   // keypad +
    {79, 83},   // keypad 1
    {80, 84},   // keypad 2
    {81, 85},   // keypad 3
    {82, 82},   // keypad 0
    {83, 65},   // keypad decimal
    {86, 50},   // between left Shift and Z: the key with < and > of an ISO keyboard
    {89, 94},   // backslash of a Japanese keyboard
    {96, 76},   // keypad Enter
    {98, 75},   // keypad /
    {117, 81},  // keypad =
    {121, 95},  // keypad comma
    {124, 93},  // yen of a Japanese keyboard
};

constexpr std::int16_t kNoPosition = -1;
constexpr std::size_t kPositions = 128;

// One slot per kernel number.
template <std::size_t Rows>
consteval std::array<std::int16_t, kPositions> ByKernelNumber(const PositionRow (&rows)[Rows]) {
    std::array<std::int16_t, kPositions> table{};
    table.fill(kNoPosition);
    for (const PositionRow& row : rows) {
        if (table.at(row.Kernel) != kNoPosition) throw "this position has two rows";
        table.at(row.Kernel) = row.KeyCode;
    }
    return table;
}

constexpr std::array<std::int16_t, kPositions> kPositionTable = ByKernelNumber(kPositionRows);

struct SpecialRow {
    std::uint32_t Symbol;
    std::int16_t KeyCode;
    char32_t Character;
};

constexpr char32_t kBackspaceCharacter = 0x7F;
constexpr char32_t kBackTabCharacter = 0x19;
constexpr char32_t kClearCharacter = 0xF739;
constexpr char32_t kHelpCharacter = 0xF746;

// Keys with a meaning of their own, in the order of their symbols. The symbols from 0xFF95 on are
// those of the keypad while Num Lock is off.
constexpr SpecialRow kSpecialRows[] = {
    {0xFE20, 48, kBackTabCharacter},      // Shift-Tab
    {0xFF08, 51, kBackspaceCharacter},    // Backspace
    {0xFF09, 48, 0x09},                   // Tab
    {0xFF0B, 71, kClearCharacter},        // Clear
    {0xFF0D, 36, 0x0D},                   // Return
    {0xFF1B, 53, 0x1B},                   // Escape
    {0xFF50, 115, kHomeCharacter},        // Home
    {0xFF51, 123, kLeftArrowCharacter},   // Left
    {0xFF52, 126, kUpArrowCharacter},     // Up
    {0xFF53, 124, kRightArrowCharacter},  // Right
    {0xFF54, 125, kDownArrowCharacter},   // Down
    {0xFF55, 116, kPageUpCharacter},      // Page Up
    {0xFF56, 121, kPageDownCharacter},    // Page Down
    {0xFF57, 119, kEndCharacter},         // End
    {0xFF63, 114, kInsertCharacter},      // Insert
    {0xFF6A, 114, kHelpCharacter},        // Help
    {0xFF8D, 76, 0x0D},                   // keypad Enter
    {0xFF95, 115, kHomeCharacter},        // keypad 7
    {0xFF96, 123, kLeftArrowCharacter},   // keypad 4
    {0xFF97, 126, kUpArrowCharacter},     // keypad 8
    {0xFF98, 124, kRightArrowCharacter},  // keypad 6
    {0xFF99, 125, kDownArrowCharacter},   // keypad 2
    {0xFF9A, 116, kPageUpCharacter},      // keypad 9
    {0xFF9B, 121, kPageDownCharacter},    // keypad 3
    {0xFF9C, 119, kEndCharacter},         // keypad 1
    {0xFF9E, 114, kInsertCharacter},      // keypad 0
    {0xFF9F, 117, kDeleteCharacter},      // keypad decimal
    {0xFFFF, 117, kDeleteCharacter},      // Delete
};
static_assert(std::ranges::is_sorted(kSpecialRows, {}, &SpecialRow::Symbol));

constexpr std::uint32_t kKeypadEnterSymbol = 0xFF8D;

// F1 is the first; the symbols and the characters follow each other in the same order.
constexpr std::uint32_t kF1Symbol = 0xFFBE;
constexpr std::uint32_t kFunctionKeys = 35;
constexpr std::int16_t kFunctionKeyCodes[] = {
    122, 120, 99,  118, 96,  97,  98, 100, 101, 109,  // F1 to F10
    103, 111, 105, 107, 113, 106, 64, 79,  80,  90,   // F11 to F20
};

struct KeypadRow {
    std::int16_t KeyCode;
    char Character;
};

// What the keypad keys say while Control or Option is held, in either state of Num Lock.
constexpr KeypadRow kKeypadRows[] = {
    {65, '.'},  // decimal
    {67, '*'},  // times
    {69, '+'},  // plus
    {75, '/'},  // divided by
    {78, '-'},  // minus
    {81, '='},  // equals
    {82, '0'},  // the digit
    {83, '1'},  // the digit
    {84, '2'},  // the digit
    {85, '3'},  // the digit
    {86, '4'},  // the digit
    {87, '5'},  // the digit
    {88, '6'},  // the digit
    {89, '7'},  // the digit
    {91, '8'},  // the digit
    {92, '9'},  // the digit
    {95, ','},  // comma of a Japanese keypad
};

struct ModifierRow {
    std::uint32_t Symbol;
    std::uint64_t Flag;
};

constexpr ModifierRow kModifierRows[] = {
    {0xFE03, kOptionFlag},    // AltGr
    {0xFE11, kOptionFlag},    // the level key above AltGr
    {0xFF7E, kOptionFlag},    // group switch
    {0xFFE1, kShiftFlag},     // left
    {0xFFE2, kShiftFlag},     // right
    {0xFFE3, kControlFlag},   // left
    {0xFFE4, kControlFlag},   // right
    {0xFFE5, kCapsLockFlag},  // Caps Lock
    {0xFFE6, kCapsLockFlag},  // Shift Lock
    {0xFFE7, kCommandFlag},   // left Meta
    {0xFFE8, kCommandFlag},   // right Meta
    {0xFFE9, kOptionFlag},    // left Alt
    {0xFFEA, kOptionFlag},    // right Alt
    {0xFFEB, kCommandFlag},   // left Super
    {0xFFEC, kCommandFlag},   // right Super
};

std::string Utf8(char32_t character) {
    if (character < 0x80) return {static_cast<char>(character)};
    // All special characters lie in the Basic Multilingual Plane above 0x7FF.
    return {static_cast<char>(0xE0U | (character >> 12U)),
            static_cast<char>(0x80U | ((character >> 6U) & 0x3FU)),
            static_cast<char>(0x80U | (character & 0x3FU))};
}

KeyPress Special(std::int64_t keyCode, char32_t character, std::uint64_t flags) {
    constexpr char32_t kFirstFunctionCharacter = kUpArrowCharacter;
    if (character >= kFirstFunctionCharacter) flags |= kFnFlag;
    return {keyCode, Utf8(character), flags};
}

std::int64_t CodeOfPosition(std::uint32_t scanCode) {
    constexpr std::uint32_t kFirstScanCode = 8;
    const std::uint32_t kernel = scanCode - kFirstScanCode;
    if (kernel >= kPositions || kPositionTable[kernel] == kNoPosition) return kNoKeyCode;
    return kPositionTable[kernel];
}

const KeypadRow* KeypadRowOf(std::int64_t keyCode) {
    const auto* const row = std::ranges::find(kKeypadRows, keyCode, &KeypadRow::KeyCode);
    return row == std::end(kKeypadRows) ? nullptr : row;
}

std::optional<KeyPress> SpecialPress(const NativeKey& key) {
    const auto* const row =
        std::ranges::lower_bound(kSpecialRows, key.Symbol, {}, &SpecialRow::Symbol);
    if (row != std::end(kSpecialRows) && row->Symbol == key.Symbol) {
        const bool tabBackwards =
            row->KeyCode == 48 && (key.Flags & kShiftFlag) != 0;  // whatever the layout calls it
        const bool onKeypad = row->Symbol == kKeypadEnterSymbol;
        return Special(row->KeyCode, tabBackwards ? kBackTabCharacter : row->Character,
                       key.Flags | (onKeypad ? kNumericPadFlag : 0));
    }
    const std::uint32_t number = key.Symbol - kF1Symbol;
    if (number >= kFunctionKeys) return std::nullopt;
    const std::int64_t keyCode =
        number < std::size(kFunctionKeyCodes) ? kFunctionKeyCodes[number] : kNoKeyCode;
    return Special(keyCode, kF1Character + number, key.Flags);
}

bool IsDeadKey(std::uint32_t symbol) {
    constexpr std::uint32_t kFirst = 0xFE50;
    constexpr std::uint32_t kLast = 0xFE93;
    return symbol >= kFirst && symbol <= kLast;
}

// Control makes a control character of a letter also where the layout left the letter.
std::string WithControl(const std::string& text, std::uint64_t flags) {
    if ((flags & kControlFlag) == 0 || text.size() != 1) return text;
    const char character = text.front();
    const bool letter =
        (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
    return letter ? std::string(1, static_cast<char>(character & 0x1F)) : text;
}

}  // namespace

std::optional<KeyPress> MapKey(const NativeKey& key) {
    if (ModifierOfSymbol(key.Symbol) != 0) return std::nullopt;
    const std::int64_t keyCode = CodeOfPosition(key.ScanCode);
    const KeypadRow* const keypad = KeypadRowOf(keyCode);
    // Held with Control or Option the keypad says its own characters: the layout would make control
    // characters of some digits, and none at all while Num Lock is off.
    if (keypad != nullptr && (key.Flags & (kControlFlag | kOptionFlag)) != 0) {
        return KeyPress{keyCode, std::string(1, keypad->Character), key.Flags | kNumericPadFlag};
    }
    if (std::optional<KeyPress> special = SpecialPress(key)) return special;
    if (key.Text.empty() && !IsDeadKey(key.Symbol)) return std::nullopt;
    return KeyPress{keyCode, WithControl(key.Text, key.Flags),
                    key.Flags | (keypad != nullptr ? kNumericPadFlag : 0)};
}

std::uint64_t ModifierOfSymbol(std::uint32_t symbol) {
    const auto* const row = std::ranges::find(kModifierRows, symbol, &ModifierRow::Symbol);
    return row == std::end(kModifierRows) ? 0 : row->Flag;
}

}  // namespace platform::parts
