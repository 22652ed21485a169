#include "platform/parts/key_map.h"

#include <array>
#include <cstddef>

#include "platform/key_codes.h"
#include "platform/search.h"
#include "platform/utf8.h"

namespace platform::parts {

namespace {

struct PositionRow {
    std::uint8_t Kernel;  // the kernel's number of the key
    platform::KeyCode KeyCode;
};

// Keys of the main block and the keypad.
// clang-format off
constexpr PositionRow kPositionRows[] = {
    {  1, kKeyEscape},
    {  2, kKey1},
    {  3, kKey2},
    {  4, kKey3},
    {  5, kKey4},
    {  6, kKey5},
    {  7, kKey6},
    {  8, kKey7},
    {  9, kKey8},
    { 10, kKey9},
    { 11, kKey0},
    { 12, kKeyMinus},
    { 13, kKeyEqual},
    { 14, kKeyBackspace},
    { 15, kKeyTab},
    { 16, kKeyQ},
    { 17, kKeyW},
    { 18, kKeyE},
    { 19, kKeyR},
    { 20, kKeyT},
    { 21, kKeyY},
    { 22, kKeyU},
    { 23, kKeyI},
    { 24, kKeyO},
    { 25, kKeyP},
    { 26, kKeyLeftBracket},
    { 27, kKeyRightBracket},
    { 28, kKeyReturn},
    { 30, kKeyA},
    { 31, kKeyS},
    { 32, kKeyD},
    { 33, kKeyF},
    { 34, kKeyG},
    { 35, kKeyH},
    { 36, kKeyJ},
    { 37, kKeyK},
    { 38, kKeyL},
    { 39, kKeySemicolon},
    { 40, kKeyQuote},
    { 41, kKeySection},       // left of 1 on an ISO keyboard
    { 43, kKeyBackslash},
    { 44, kKeyZ},
    { 45, kKeyX},
    { 46, kKeyC},
    { 47, kKeyV},
    { 48, kKeyB},
    { 49, kKeyN},
    { 50, kKeyM},
    { 51, kKeyComma},
    { 52, kKeyPeriod},
    { 53, kKeySlash},
    { 55, kKeypadTimes},
    { 57, kKeySpace},
    { 71, kKeypad7},
    { 72, kKeypad8},
    { 73, kKeypad9},
    { 74, kKeypadMinus},
    { 75, kKeypad4},
    { 76, kKeypad5},
    { 77, kKeypad6},
    { 78, kKeypadPlus},
    { 79, kKeypad1},
    { 80, kKeypad2},
    { 81, kKeypad3},
    { 82, kKeypad0},
    { 83, kKeypadDecimal},
    { 86, kKeyGrave},         // between left Shift and Z on an ISO keyboard: < and >
    { 89, kKeyUnderscore},    // backslash of a Japanese keyboard
    { 96, kKeypadEnter},
    { 98, kKeypadDivide},
    {117, kKeypadEqual},
    {121, kKeypadComma},
    {124, kKeyYen},
};
// clang-format on

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
    platform::KeyCode KeyCode;
    char32_t Character;
};

constexpr char32_t kBackspaceCharacter = 0x7F;
constexpr char32_t kBackTabCharacter = 0x19;
constexpr char32_t kClearCharacter = 0xF739;
constexpr char32_t kHelpCharacter = 0xF746;

// Keys with a meaning of their own, in the order of their symbols. The symbols from 0xFF95 on are
// those of the keypad while Num Lock is off.
constexpr SpecialRow kSpecialRows[] = {
    {0xFE20, kKeyTab, kBackTabCharacter},          // Shift-Tab
    {0xFF08, kKeyBackspace, kBackspaceCharacter},  // Backspace
    {0xFF09, kKeyTab, 0x09},                       // Tab
    {0xFF0B, kKeypadClear, kClearCharacter},       // Clear
    {0xFF0D, kKeyReturn, 0x0D},                    // Return
    {0xFF1B, kKeyEscape, 0x1B},                    // Escape
    {0xFF50, kKeyHome, kHomeCharacter},            // Home
    {0xFF51, kKeyLeft, kLeftArrowCharacter},       // Left
    {0xFF52, kKeyUp, kUpArrowCharacter},           // Up
    {0xFF53, kKeyRight, kRightArrowCharacter},     // Right
    {0xFF54, kKeyDown, kDownArrowCharacter},       // Down
    {0xFF55, kKeyPageUp, kPageUpCharacter},        // Page Up
    {0xFF56, kKeyPageDown, kPageDownCharacter},    // Page Down
    {0xFF57, kKeyEnd, kEndCharacter},              // End
    {0xFF63, kKeyInsert, kInsertCharacter},        // Insert
    {0xFF6A, kKeyInsert, kHelpCharacter},          // Help
    {0xFF8D, kKeypadEnter, 0x0D},                  // keypad Enter
    {0xFF95, kKeyHome, kHomeCharacter},            // keypad 7
    {0xFF96, kKeyLeft, kLeftArrowCharacter},       // keypad 4
    {0xFF97, kKeyUp, kUpArrowCharacter},           // keypad 8
    {0xFF98, kKeyRight, kRightArrowCharacter},     // keypad 6
    {0xFF99, kKeyDown, kDownArrowCharacter},       // keypad 2
    {0xFF9A, kKeyPageUp, kPageUpCharacter},        // keypad 9
    {0xFF9B, kKeyPageDown, kPageDownCharacter},    // keypad 3
    {0xFF9C, kKeyEnd, kEndCharacter},              // keypad 1
    {0xFF9E, kKeyInsert, kInsertCharacter},        // keypad 0
    {0xFF9F, kKeyDelete, kDeleteCharacter},        // keypad decimal
    {0xFFFF, kKeyDelete, kDeleteCharacter},        // Delete
};

constexpr std::uint32_t kKeypadEnterSymbol = 0xFF8D;

// F1 is the first; the symbols and the characters follow each other in the same order.
constexpr std::uint32_t kF1Symbol = 0xFFBE;
constexpr std::uint32_t kFunctionKeys = 35;
constexpr KeyCode kFunctionKeyCodes[] = {
    kKeyF1,  kKeyF2,  kKeyF3,  kKeyF4,  kKeyF5,  kKeyF6,  kKeyF7,  kKeyF8,  kKeyF9,  kKeyF10,
    kKeyF11, kKeyF12, kKeyF13, kKeyF14, kKeyF15, kKeyF16, kKeyF17, kKeyF18, kKeyF19, kKeyF20,
};

struct KeypadRow {
    platform::KeyCode KeyCode;
    char Character;
};

// What the keypad keys say while Control or Option is held, in either state of Num Lock.
// clang-format off
constexpr KeypadRow kKeypadRows[] = {
    {kKeypadDecimal, '.'},
    {kKeypadTimes, '*'},
    {kKeypadPlus, '+'},
    {kKeypadDivide, '/'},
    {kKeypadMinus, '-'},
    {kKeypadEqual, '='},
    {kKeypad0, '0'},
    {kKeypad1, '1'},
    {kKeypad2, '2'},
    {kKeypad3, '3'},
    {kKeypad4, '4'},
    {kKeypad5, '5'},
    {kKeypad6, '6'},
    {kKeypad7, '7'},
    {kKeypad8, '8'},
    {kKeypad9, '9'},
    {kKeypadComma, ','},
};
// clang-format on

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

KeyPress Special(std::int64_t keyCode, char32_t character, std::uint64_t flags) {
    constexpr char32_t kFirstFunctionCharacter = kUpArrowCharacter;
    if (character >= kFirstFunctionCharacter) flags |= kFnFlag;
    KeyPress press{keyCode, {}, flags};
    AppendUtf8(press.Characters, character);
    return press;
}

std::int64_t CodeOfPosition(std::uint32_t scanCode) {
    constexpr std::uint32_t kFirstScanCode = 8;
    const std::uint32_t kernel = scanCode - kFirstScanCode;
    if (kernel >= kPositions || kPositionTable[kernel] == kNoPosition) return kNoKeyCode;
    return kPositionTable[kernel];
}

const KeypadRow* KeypadRowOf(std::int64_t keyCode) {
    return RowWith(kKeypadRows, &KeypadRow::KeyCode, keyCode);
}

std::optional<KeyPress> SpecialPress(const NativeKey& key) {
    const auto* const row = RowWith(kSpecialRows, &SpecialRow::Symbol, key.Symbol);
    if (row != nullptr) {
        const bool tabBackwards = row->KeyCode == kKeyTab &&
                                  (key.Flags & kShiftFlag) != 0;  // whatever the layout calls it
        const bool onKeypad = row->Symbol == kKeypadEnterSymbol;
        return Special(row->KeyCode, tabBackwards ? kBackTabCharacter : row->Character,
                       key.Flags | (onKeypad ? kNumericPadFlag : 0));
    }
    const std::uint32_t number = key.Symbol - kF1Symbol;
    if (number >= kFunctionKeys) return std::nullopt;
    const std::int64_t keyCode = number < std::size(kFunctionKeyCodes)
                                     ? std::int64_t{kFunctionKeyCodes[number]}
                                     : kNoKeyCode;
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
    const auto* const row = RowWith(kModifierRows, &ModifierRow::Symbol, symbol);
    return row == nullptr ? 0 : row->Flag;
}

}  // namespace platform::parts
