#pragma once

#include <cstdint>

// The character codes that the toolkit itself has a meaning for in more than one place. Up to 255 a
// byte of a Text, a key's value and a character have the same codes.

namespace toolkit {

inline constexpr std::uint8_t kLineFeed = 10;
inline constexpr std::uint8_t kCarriageReturn = 13;  // also the Return key
inline constexpr std::uint8_t kControlS = 19;        // stops output until the next key
inline constexpr std::uint8_t kEscape = 27;          // also begins an escape sequence
inline constexpr std::uint8_t kGroupSeparator = 29;  // ends one
inline constexpr std::uint8_t kBlank = 32;           // the first code that prints
inline constexpr std::uint8_t kMinus = 45;
inline constexpr std::uint8_t kBackspace = 127;  // the key; as a character it is block graphics

/// Whether `code` is one of the digits 0 to 9.
[[nodiscard]] constexpr bool IsDigit(std::int64_t code) {
    return code >= '0' && code <= '9';
}

}  // namespace toolkit
