#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// String operations in the manner of a home computer's BASIC. Characters are Unicode scalar values
// and count from 1. Any thread; nothing is printed.

/// The code of the first character; 0 for an empty string.
[[nodiscard]] std::int64_t t_CharCode(std::string_view string);

/// The n-th character; empty when n is below 1 or past the end.
[[nodiscard]] std::string t_MidChar(std::string_view string, std::int64_t n);

/// The characters from the n-th on: the whole string for n below 2, empty past the end.
[[nodiscard]] std::string t_MidFrom(std::string_view string, std::int64_t n);

/// Position of the first occurrence of `part` at or after position `start` (below 1 counts as 1);
/// 0 when there is none. Upper and lower case differ.
[[nodiscard]] std::int64_t t_InStr(std::string_view string, std::string_view part,
                                   std::int64_t start = 1);

/// The part before the first carriage return; when there is none, before the first line feed; else
/// the whole string.
[[nodiscard]] std::string t_FirstLine(std::string_view string);

/// The characters after the last slash; the whole path without one.
[[nodiscard]] std::string t_FileNameOfPath(std::string_view path);

/// `n` blanks; empty for 0 or less and above 32,767.
[[nodiscard]] std::string t_Spaces(std::int64_t n);

/// The code of a character's lower-case form as Unicode has it; the code itself without one; 0 for
/// a negative code.
[[nodiscard]] std::int64_t t_LowerCode(std::int64_t code);
