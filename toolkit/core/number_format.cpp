#include "toolkit/core/number_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "toolkit/core/output.h"
#include "toolkit/core/tables.h"
#include "toolkit/core/utf8.h"

namespace {

constexpr std::int64_t kWidest = 32'767;
constexpr std::size_t kLongestDouble = 1100;  // characters of any double without an exponent

// The shortest digits that give the same double back, without an exponent.
std::string ShortestDecimal(double value) {
    std::array<char, kLongestDouble> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   std::chars_format::fixed);
    return {digits.data(), end.ptr};
}

std::string Grouped(std::string_view digits) {
    std::string grouped;
    for (std::size_t left = digits.size(); left > 0; --left) {
        if (left % 3 == 0 && left != digits.size()) grouped += '.';
        grouped += digits[digits.size() - left];
    }
    return grouped;
}

}  // namespace

std::string t_FormatNumber(double value, char32_t fill, std::int64_t minWidth,
                           std::int64_t decimals, bool grouping) {
    if (!std::isfinite(value)) return ShortestDecimal(value);
    const std::string shortest = ShortestDecimal(std::fabs(value));
    const std::size_t point = std::min(shortest.find('.'), shortest.size());
    const std::string_view digits = std::string_view(shortest).substr(0, point);
    std::string fraction = shortest.substr(std::min(point + 1, shortest.size()));

    std::string integer(std::signbit(value) ? 1 : 0, '-');
    integer += grouping ? Grouped(digits) : std::string(digits);
    std::string text;
    const std::int64_t width = std::min(minWidth, kWidest);
    for (std::int64_t i = std::ssize(integer); i < width; ++i) {
        toolkit::AppendCharacter(text, static_cast<std::int64_t>(fill));
    }
    fraction.resize(static_cast<std::size_t>(std::clamp<std::int64_t>(decimals, 0, kWidest)), '0');
    return toolkit::Joined(text, integer, ",", fraction);
}

std::string t_HexText(std::int64_t value) {
    std::string digits;
    for (int shift = 28; shift >= 0; shift -= 4) {
        digits += static_cast<char>(t_HexDigits[static_cast<std::size_t>(value >> shift & 0xF)]);
    }
    return digits;
}
