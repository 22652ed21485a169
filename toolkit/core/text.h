#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Byte strings, and the ways between them, UTF-8 strings and numbers. Any thread.

/// A byte string, the machine's own kind of string.
struct Text {
    std::vector<std::uint8_t> Elements;

    bool operator==(const Text&) const = default;
};

/// The UTF-8 bytes of a string.
[[nodiscard]] Text t_StringToText(std::string_view string);

/// The string that the bytes stand for. Valid UTF-8 is taken as it is. Otherwise every byte is one
/// character of the code 0 to 255, except for escapes of six bytes: ESC (27), four hexadecimal
/// digits, GS (29) stand for the one character with that code. An escape whose code is no character
/// gives the character 0; a byte that is no hexadecimal digit counts as the digit 0.
[[nodiscard]] std::string t_TextToString(const Text& text);

/// The decimal number at the start of the text: blanks, at most one minus sign, blanks, digits. 0
/// where there are no digits; a number that does not fit stops at the largest or smallest.
[[nodiscard]] std::int64_t t_TextToInt(const Text& text);

/// The number in decimal, with a minus sign before a negative one.
[[nodiscard]] Text t_IntToText(std::int64_t number);
