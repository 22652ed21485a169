#include "toolkit/input/escapes.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "toolkit/core/numbers.h"
#include "toolkit/core/tables.h"
#include "toolkit/core/utf8.h"

namespace {

constexpr char32_t kEscape = 27;
constexpr char32_t kGroupSeparator = 29;
constexpr char32_t kLineFeed = 10;
constexpr char32_t kCarriageReturn = 13;
constexpr char32_t kLastSingle = 255;
constexpr std::size_t kDigits = 4;

using Iterator = std::vector<char32_t>::iterator;

std::int64_t HexadecimalValue(Iterator digit, Iterator end) {
    std::int64_t value = 0;
    for (; digit != end; ++digit) {
        const std::int64_t d = t_HexValue[*digit & 0x7F];
        if (d < 0) break;
        value = toolkit::Plus(toolkit::Times(value, 16), d);
    }
    return value;
}

}  // namespace

std::string t_DecodeEscapes(std::string_view string) {
    std::vector<char32_t> characters = toolkit::Characters(string);
    auto escape = std::ranges::find(characters, kEscape);
    while (escape != characters.end()) {
        const auto end = std::find(escape, characters.end(), kGroupSeparator);
        if (end == characters.end() || end == escape + 1) break;
        const std::int64_t code = HexadecimalValue(escape + 1, end);
        *escape = static_cast<char32_t>(toolkit::IsScalar(code) ? code : 0);
        characters.erase(escape + 1, end + 1);
        escape = std::find(escape, characters.end(), kEscape);
    }
    std::string decoded;
    for (const char32_t c : characters) toolkit::AppendCharacter(decoded, c);
    return decoded;
}

std::string t_EncodeEscapes(std::string_view string) {
    std::string encoded;
    for (const char32_t c : toolkit::Characters(string)) {
        if (c <= kLastSingle) {
            toolkit::AppendCharacter(encoded, c == kLineFeed ? kCarriageReturn : c);
            continue;
        }
        toolkit::AppendCharacter(encoded, kEscape);
        encoded += t_HexText(c).substr(kDigits);
        toolkit::AppendCharacter(encoded, kGroupSeparator);
    }
    return encoded;
}
