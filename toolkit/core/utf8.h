#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Strings are UTF-8; a character is a Unicode scalar value. Where a string is not valid UTF-8, each
// offending byte counts as one character U+FFFD, so that every string has a length. Any thread.

namespace toolkit {

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

/// Whether `code` is a Unicode scalar value: 0 to 0x10FFFF without the surrogates.
[[nodiscard]] constexpr bool IsScalar(std::int64_t code) {
    return (code >= 0 && code < 0xD800) || (code > 0xDFFF && code <= 0x10FFFF);
}

/// One decoded character and the number of bytes it took (1 or more).
struct Decoded {
    char32_t Code = 0;
    std::size_t Length = 1;
    bool Valid = true;
};

/// The character at the start of `bytes`, which must not be empty.
[[nodiscard]] Decoded DecodeFirst(std::string_view bytes);

[[nodiscard]] bool IsValidUtf8(std::string_view bytes);

[[nodiscard]] std::vector<char32_t> Characters(std::string_view string);

[[nodiscard]] std::int64_t LengthInCharacters(std::string_view string);

/// Appends a character; a code that is no scalar value appends the character 0.
void AppendCharacter(std::string& string, std::int64_t code);

/// The character as a string of its own; as AppendCharacter.
[[nodiscard]] std::string CharacterString(std::int64_t code);

/// `count` characters from the character at `first` (from 0) on; fewer where the string ends.
[[nodiscard]] std::string_view Substring(std::string_view string, std::int64_t first,
                                         std::int64_t count);

}  // namespace toolkit
