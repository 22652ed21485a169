#pragma once

#include <string>
#include <string_view>

// Characters above 255 in a one-byte world: ESC (27), the code as four hexadecimal digits, GS (29).
// Any thread; nothing is printed.

/// Every sequence becomes its character. Digits end at the first character that is none; a code
/// that is no character gives the character 0. An ESC that no GS follows, or that a GS follows
/// directly, stays with all that comes after it.
[[nodiscard]] std::string t_DecodeEscapes(std::string_view string);

/// Every character above 255 becomes a sequence of the low 16 bits of its code, every line feed a
/// carriage return.
[[nodiscard]] std::string t_EncodeEscapes(std::string_view string);
