#include "toolkit/input/key_table.h"

#include "platform/input.h"
#include "toolkit/core/codes.h"
#include "toolkit/window/window.h"

namespace toolkit {

namespace {

using platform::kControlFlag;
using platform::kOptionFlag;
using platform::kShiftFlag;
using enum KeyResult::Kind;

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

// Keys are named by their place on a US keyboard. The first row that applies counts.
// clang-format off
constexpr KeyRow kKeys[] = {
    {  0, 0x00E5, 0, 0, {Value, 176}},                                  // A: å
    {  1, 0x201A, 0, 0, {Value, 168}},                                  // S: ‚
    {  2, 0x2202, 0, 0, {Value, 173}},                                  // D: ∂
    {  3, 0x0192, 0, 0, {Value, 130}},                                  // F: ƒ
    {  4, 0x00AA, 0, 0, {Value, 131}},                                  // H: ª
    {  7, 0x2248, 0, 0, {Value, 132}},                                  // X: ≈
    {  9, 0x221A, 0, 0, {Value, 253}},                                  // V: √
    { 10, 0,      0, 0, {Value, 94}},                                   // section key
    { 11, 0x222B, 0, 0, {Value, 222}},                                  // B: ∫
    { 13, 0x2211, 0, 0, {Value, 221}},                                  // W: ∑
    { 14, 0x20AC, 0, 0, {Value, 164}},                                  // E: €
    { 16, 0x03A9, 0, 0, {Value, 128}},                                  // Y: Ω
    { 17, 0x2020, 0, 0, {Value, 189}},                                  // T: †
    { 19, 0x201C, 0, 0, {Value, 163}},                                  // 2: “
    { 24, 0, kShiftFlag, kShiftFlag, {Value, 96}},                      // =
    { 24, 0,      0, 0, {Value, 180}},                                  // =
    { 27, 0x00BF, 0, 0, {Value, 166}},                                  // -: ¿
    { 29, 0x2260, 0, 0, {Value, 172}},                                  // 0: ≠
    { 32, 0,      0, 0, {Value, 175}},                                  // U
    { 33, 0x2022, 0, 0, {Value, 184}},                                  // [: •
    { 34, 0x2044, 0, 0, {Value, 129}},                                  // I: ⁄
    { 35, 0x03C0, 0, 0, {Value, 240}},                                  // P: π
    { 35, 0x220F, 0, 0, {Value, 208}},                                  // P: ∏
    { 37, 12, kOptionFlag, kOptionFlag, {Value, 0}},                    // L: Control-L
    { 38, 0x00BA, 0, 0, {Value, 183}},                                  // J: º
    { 40, 0x2206, 0, 0, {Value, 254}},                                  // K: ∆
    { 41, 0x0153, 0, 0, {Value, 190}},                                  // ;: œ
    { 42, 0x2018, 0, 0, {Value, 180}},                                  // \: ‘
    { 43, 0x221E, 0, 0, {Value, 255}},                                  // ,: ∞
    { 44, 0x2013, 0, 0, {Value, 154}},                                  // /: –
    { 45, 0, kOptionFlag, kOptionFlag, {Value, 126}},                   // N
    { 47, 0x2026, 0, 0, {Value, 191}},                                  // .: …
    { 48, 25,     0, 0, {Value, 20}},                                   // Shift-Tab
    { 50, 0x2264, 0, 0, {Value, 197}},                                  // grave: ≤
    { 50, 0x2265, 0, 0, {Value, 198}},                                  // grave: ≥
    { 51, kAnyCharacter, 0, 0, {Value, kBackspace}},                    // Backspace
    { 71, kAnyCharacter, 0, 0, {Value, kEscape}},                       // keypad Clear
    { 76, kAnyCharacter, 0, 0, {Value, kCarriageReturn}},               // keypad Enter
    { 82, kAnyCharacter, kOptionFlag, kOptionFlag, {Value, 216}},       // keypad 0
    { 83, kAnyCharacter, kOptionFlag, kOptionFlag, {Value, 185}},       // keypad 1
    { 84, kAnyCharacter, kOptionFlag, kOptionFlag, {Value, 178}},       // keypad 2
    { 85, kAnyCharacter, kOptionFlag, kOptionFlag, {Value, 179}},       // keypad 3
    { 86, kAnyCharacter, kOptionFlag, kOptionFlag, {Value, 170}},       // keypad 4
    { 87, kAnyCharacter, kOptionFlag, kOptionFlag, {Value, 215}},       // keypad 5
    { 88, kAnyCharacter, kOptionFlag, kOptionFlag, {Value, 186}},       // keypad 6
    { 89, kAnyCharacter, kBoth, kControlFlag, {Redirect, TextOutput::ToNowhere}},  // keypad 7
    { 89, kAnyCharacter, kOptionFlag, kOptionFlag, {Character, 229}},   // keypad 7
    { 91, kAnyCharacter, kBoth, kControlFlag, {Redirect, TextOutput::ToStandardOutput}},  // keypad 8
    { 91, kAnyCharacter, kOptionFlag, kOptionFlag, {Character, 230}},   // keypad 8
    { 92, kAnyCharacter, kBoth, kControlFlag, {Redirect, TextOutput::ToWindow}},  // keypad 9
    { 92, kAnyCharacter, kOptionFlag, kOptionFlag, {Character, 188}},   // keypad 9
    {115, kAnyCharacter, 0, 0, {CursorKey, 2}},                         // Home
    {116, kAnyCharacter, 0, 0, {CursorKey, 18}},                        // Page Up
    {117, kAnyCharacter, 0, 0, {Value, 7}},                             // Forward Delete
    {119, kAnyCharacter, 0, 0, {CursorKey, 5}},                         // End
    {121, kAnyCharacter, 0, 0, {CursorKey, 3}},                         // Page Down
    {123, kAnyCharacter, 0, 0, {CursorKey, 8}},                         // Left arrow
    {124, kAnyCharacter, 0, 0, {CursorKey, 21}},                        // Right arrow
    {125, kAnyCharacter, 0, 0, {CursorKey, 10}},                        // Down arrow
    {126, kAnyCharacter, 0, 0, {CursorKey, 11}},                        // Up arrow
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
