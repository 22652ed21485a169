#include "toolkit/input/key_table.h"

#include "platform/input.h"
#include "platform/key_codes.h"
#include "toolkit/core/codes.h"
#include "toolkit/window/window.h"

namespace toolkit {

namespace {

using platform::kControlFlag;
using platform::kOptionFlag;
using platform::kShiftFlag;
using enum KeyResult::Kind;
using enum platform::KeyCode;

constexpr std::int64_t kAnyCharacter = -1;

// A row applies to the key when the character is K and, of the modifiers in Mask, exactly those in
// Held are held.
struct KeyRow {
    std::int64_t KeyCode;
    std::int64_t K;
    std::uint64_t Mask;
    std::uint64_t Held;
    KeyResult Result;
};

constexpr std::uint64_t kBoth = kControlFlag | kOptionFlag;

// The first row that applies counts.
// clang-format off
constexpr KeyRow kKeys[] = {
    {kKeyA,           0x00E5,        0, 0,                    {Value, 176}},      // å
    {kKeyS,           0x201A,        0, 0,                    {Value, 168}},      // ‚
    {kKeyD,           0x2202,        0, 0,                    {Value, 173}},      // ∂
    {kKeyF,           0x0192,        0, 0,                    {Value, 130}},      // ƒ
    {kKeyH,           0x00AA,        0, 0,                    {Value, 131}},      // ª
    {kKeyX,           0x2248,        0, 0,                    {Value, 132}},      // ≈
    {kKeyV,           0x221A,        0, 0,                    {Value, 253}},      // √
    {kKeySection,     0,             0, 0,                    {Value, 94}},
    {kKeyB,           0x222B,        0, 0,                    {Value, 222}},      // ∫
    {kKeyW,           0x2211,        0, 0,                    {Value, 221}},      // ∑
    {kKeyE,           0x20AC,        0, 0,                    {Value, 164}},      // €
    {kKeyY,           0x03A9,        0, 0,                    {Value, 128}},      // Ω
    {kKeyT,           0x2020,        0, 0,                    {Value, 189}},      // †
    {kKey2,           0x201C,        0, 0,                    {Value, 163}},      // “
    {kKeyEqual,       0,             kShiftFlag, kShiftFlag,  {Value, 96}},
    {kKeyEqual,       0,             0, 0,                    {Value, 180}},
    {kKeyMinus,       0x00BF,        0, 0,                    {Value, 166}},      // ¿
    {kKey0,           0x2260,        0, 0,                    {Value, 172}},      // ≠
    {kKeyU,           0,             0, 0,                    {Value, 175}},
    {kKeyLeftBracket, 0x2022,        0, 0,                    {Value, 184}},      // •
    {kKeyI,           0x2044,        0, 0,                    {Value, 129}},      // ⁄
    {kKeyP,           0x03C0,        0, 0,                    {Value, 240}},      // π
    {kKeyP,           0x220F,        0, 0,                    {Value, 208}},      // ∏
    {kKeyL,           12,            kOptionFlag, kOptionFlag,{Value, 0}},        // Control-L
    {kKeyJ,           0x00BA,        0, 0,                    {Value, 183}},      // º
    {kKeyK,           0x2206,        0, 0,                    {Value, 254}},      // ∆
    {kKeySemicolon,   0x0153,        0, 0,                    {Value, 190}},      // œ
    {kKeyBackslash,   0x2018,        0, 0,                    {Value, 180}},      // ‘
    {kKeyComma,       0x221E,        0, 0,                    {Value, 255}},      // ∞
    {kKeySlash,       0x2013,        0, 0,                    {Value, 154}},      // –
    {kKeyN,           0,             kOptionFlag, kOptionFlag,{Value, 126}},
    {kKeyPeriod,      0x2026,        0, 0,                    {Value, 191}},      // …
    {kKeyTab,         25,            0, 0,                    {Value, 20}},       // with Shift
    {kKeyGrave,       0x2264,        0, 0,                    {Value, 197}},      // ≤
    {kKeyGrave,       0x2265,        0, 0,                    {Value, 198}},      // ≥
    {kKeyBackspace,   kAnyCharacter, 0, 0,                    {Value, kBackspace}},
    {kKeypadClear,    kAnyCharacter, 0, 0,                    {Value, kEscape}},
    {kKeypadEnter,    kAnyCharacter, 0, 0,                    {Value, kCarriageReturn}},
    {kKeypad0,        kAnyCharacter, kOptionFlag, kOptionFlag,{Value, 216}},
    {kKeypad1,        kAnyCharacter, kOptionFlag, kOptionFlag,{Value, 185}},
    {kKeypad2,        kAnyCharacter, kOptionFlag, kOptionFlag,{Value, 178}},
    {kKeypad3,        kAnyCharacter, kOptionFlag, kOptionFlag,{Value, 179}},
    {kKeypad4,        kAnyCharacter, kOptionFlag, kOptionFlag,{Value, 170}},
    {kKeypad5,        kAnyCharacter, kOptionFlag, kOptionFlag,{Value, 215}},
    {kKeypad6,        kAnyCharacter, kOptionFlag, kOptionFlag,{Value, 186}},
    {kKeypad7,        kAnyCharacter, kBoth, kControlFlag,     {Redirect, TextOutput::ToNowhere}},
    {kKeypad7,        kAnyCharacter, kOptionFlag, kOptionFlag,{Character, 229}},
    {kKeypad8,        kAnyCharacter, kBoth, kControlFlag,     {Redirect, TextOutput::ToStandardOutput}},
    {kKeypad8,        kAnyCharacter, kOptionFlag, kOptionFlag,{Character, 230}},
    {kKeypad9,        kAnyCharacter, kBoth, kControlFlag,     {Redirect, TextOutput::ToWindow}},
    {kKeypad9,        kAnyCharacter, kOptionFlag, kOptionFlag,{Character, 188}},
    {kKeyHome,        kAnyCharacter, 0, 0,                    {CursorKey, 2}},
    {kKeyPageUp,      kAnyCharacter, 0, 0,                    {CursorKey, 18}},
    {kKeyDelete,      kAnyCharacter, 0, 0,                    {Value, 7}},
    {kKeyEnd,         kAnyCharacter, 0, 0,                    {CursorKey, 5}},
    {kKeyPageDown,    kAnyCharacter, 0, 0,                    {CursorKey, 3}},
    {kKeyLeft,        kAnyCharacter, 0, 0,                    {CursorKey, 8}},
    {kKeyRight,       kAnyCharacter, 0, 0,                    {CursorKey, 21}},
    {kKeyDown,        kAnyCharacter, 0, 0,                    {CursorKey, 10}},
    {kKeyUp,          kAnyCharacter, 0, 0,                    {CursorKey, 11}},
};
// clang-format on

}  // namespace

KeyResult LookUpKey(std::int64_t keyCode, std::int64_t k, std::uint64_t modifierFlags) {
    for (const KeyRow& row : kKeys) {
        if (row.KeyCode != keyCode || (row.K != kAnyCharacter && row.K != k)) continue;
        if ((modifierFlags & row.Mask) == row.Held) return row.Result;
    }
    return {Character, k};
}

}  // namespace toolkit
