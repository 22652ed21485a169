#pragma once

#include <cstdint>
#include <string>

#include "platform/key_codes.h"

// Key presses and clicks as they cross the seam. Plain values; made and read on the main thread.

namespace platform {

/// Bits of a modifier mask.
inline constexpr std::uint64_t kCapsLockFlag = 1U << 16U;
inline constexpr std::uint64_t kShiftFlag = 1U << 17U;
inline constexpr std::uint64_t kControlFlag = 1U << 18U;
inline constexpr std::uint64_t kOptionFlag = 1U << 19U;   // Alt and AltGr
inline constexpr std::uint64_t kCommandFlag = 1U << 20U;  // Super
inline constexpr std::uint64_t kNumericPadFlag = 1U << 21U;
inline constexpr std::uint64_t kHelpFlag = 1U << 22U;
inline constexpr std::uint64_t kFnFlag = 1U << 23U;  // also set for every function-key character

/// The characters of keys without a printable character. F2 and the other function keys follow F1.
inline constexpr char32_t kUpArrowCharacter = 0xF700;
inline constexpr char32_t kDownArrowCharacter = 0xF701;
inline constexpr char32_t kLeftArrowCharacter = 0xF702;
inline constexpr char32_t kRightArrowCharacter = 0xF703;
inline constexpr char32_t kF1Character = 0xF704;
inline constexpr char32_t kInsertCharacter = 0xF727;
inline constexpr char32_t kDeleteCharacter = 0xF728;
inline constexpr char32_t kHomeCharacter = 0xF729;
inline constexpr char32_t kEndCharacter = 0xF72B;
inline constexpr char32_t kPageUpCharacter = 0xF72C;
inline constexpr char32_t kPageDownCharacter = 0xF72D;

/// A pressed key. `KeyCode` names the position of the key by its number in platform/key_codes.h,
/// whatever the layout makes of it; kNoKeyCode for a key that has none.
struct KeyPress {
    std::int64_t KeyCode = kNoKeyCode;
    std::string Characters;           // UTF-8; empty for a dead key
    std::uint64_t ModifierFlags = 0;  // the bits above
};

/// A pressed mouse button. The place counts in points from the lower left of the window's content.
struct MousePress {
    double X = 0;
    double Y = 0;
    std::int64_t Buttons = 0;  // all buttons held: 1 left, 2 right, 4 middle, 8 and up others
    std::uint64_t ModifierFlags = 0;  // the bits above
};

}  // namespace platform
