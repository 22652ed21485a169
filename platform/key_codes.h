#pragma once

#include <cstdint>

// The numbers of the keys as they cross the seam in KeyPress::KeyCode.
//
// A number names a position and not what the layout makes of it: kKeyA is the key to the right of
// Caps Lock, which says Q on a French keyboard. The names are those of a US keyboard; keys that it
// lacks bear the name of the keyboard that has them. Arrows, Home, Clear and the like and the
// function keys have their number wherever they stand.

namespace platform {

enum KeyCode : std::int16_t {
    // Letters
    kKeyA = 0,
    kKeyB = 11,
    kKeyC = 8,
    kKeyD = 2,
    kKeyE = 14,
    kKeyF = 3,
    kKeyG = 5,
    kKeyH = 4,
    kKeyI = 34,
    kKeyJ = 38,
    kKeyK = 40,
    kKeyL = 37,
    kKeyM = 46,
    kKeyN = 45,
    kKeyO = 31,
    kKeyP = 35,
    kKeyQ = 12,
    kKeyR = 15,
    kKeyS = 1,
    kKeyT = 17,
    kKeyU = 32,
    kKeyV = 9,
    kKeyW = 13,
    kKeyX = 7,
    kKeyY = 16,
    kKeyZ = 6,

    // Digits of the main block
    kKey0 = 29,
    kKey1 = 18,
    kKey2 = 19,
    kKey3 = 20,
    kKey4 = 21,
    kKey5 = 23,
    kKey6 = 22,
    kKey7 = 26,
    kKey8 = 28,
    kKey9 = 25,

    // Other keys of the main block
    kKeyMinus = 27,
    kKeyEqual = 24,
    kKeyLeftBracket = 33,
    kKeyRightBracket = 30,
    kKeySemicolon = 41,
    kKeyQuote = 39,
    kKeyBackslash = 42,
    kKeyComma = 43,
    kKeyPeriod = 47,
    kKeySlash = 44,
    kKeySection = 10,  // ISO: left of 1
    kKeyGrave = 50,    // ISO: between left Shift and Z
    kKeyYen = 93,      // Japanese
    kKeyUnderscore = 94,
    kKeySpace = 49,
    kKeyTab = 48,
    kKeyReturn = 36,
    kKeyBackspace = 51,
    kKeyEscape = 53,

    // Keypad
    kKeypad0 = 82,
    kKeypad1 = 83,
    kKeypad2 = 84,
    kKeypad3 = 85,
    kKeypad4 = 86,
    kKeypad5 = 87,
    kKeypad6 = 88,
    kKeypad7 = 89,
    kKeypad8 = 91,
    kKeypad9 = 92,
    kKeypadDecimal = 65,
    kKeypadComma = 95,  // Japanese
    kKeypadPlus = 69,
    kKeypadMinus = 78,
    kKeypadTimes = 67,
    kKeypadDivide = 75,
    kKeypadEqual = 81,
    kKeypadEnter = 76,
    kKeypadClear = 71,

    // Cursor block
    kKeyInsert = 114,  // also Help
    kKeyDelete = 117,
    kKeyHome = 115,
    kKeyEnd = 119,
    kKeyPageUp = 116,
    kKeyPageDown = 121,
    kKeyLeft = 123,
    kKeyRight = 124,
    kKeyDown = 125,
    kKeyUp = 126,

    // Function keys
    kKeyF1 = 122,
    kKeyF2 = 120,
    kKeyF3 = 99,
    kKeyF4 = 118,
    kKeyF5 = 96,
    kKeyF6 = 97,
    kKeyF7 = 98,
    kKeyF8 = 100,
    kKeyF9 = 101,
    kKeyF10 = 109,
    kKeyF11 = 103,
    kKeyF12 = 111,
    kKeyF13 = 105,
    kKeyF14 = 107,
    kKeyF15 = 113,
    kKeyF16 = 106,
    kKeyF17 = 64,
    kKeyF18 = 79,
    kKeyF19 = 80,
    kKeyF20 = 90,
};

/// The key code of a key that has no name here. Fits no KeyCode.
inline constexpr std::int64_t kNoKeyCode = 65535;

}  // namespace platform
