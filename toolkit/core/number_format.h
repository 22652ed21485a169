#pragma once

#include <cstdint>
#include <string>

// Numbers as a person reads them.

/// A number in German notation: a comma before the decimals and, with `grouping`, a full stop
/// between groups of three digits.
/// fill      put before the sign and the integer part until they are `minWidth` characters long
/// minWidth  in characters; above 32,767 counts as that
/// decimals  digits after the comma: those of the shortest decimal form, cut or filled up with 0;
///           below 0 counts as 0, and then the number ends in the comma: 5 becomes "5,"
/// A value that is no finite number gives its name alone. Any thread.
[[nodiscard]] std::string t_FormatNumber(double value, char32_t fill, std::int64_t minWidth,
                                         std::int64_t decimals, bool grouping);

/// The low 32 bits of `value` as exactly eight upper-case hexadecimal digits. Any thread, after
/// initvxtools.
[[nodiscard]] std::string t_HexText(std::int64_t value);
