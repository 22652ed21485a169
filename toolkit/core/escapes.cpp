#include "toolkit/core/escapes.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "toolkit/core/codes.h"
#include "toolkit/core/number_format.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/tables.h"
#include "toolkit/core/utf8.h"

namespace {

using toolkit::kCarriageReturn;
using toolkit::kEscape;
using toolkit::kGroupSeparator;
using toolkit::kLineFeed;

constexpr char32_t kLastSingle = 255;
constexpr std::size_t kDigits = 4;

using Iterator = std::vector<char32_t>::const_iterator;

std::int64_t HexadecimalValue(Iterator digit, Iterator end) {
    std::int64_t value = 0;
    for (; digit != end; ++digit) {
        const std::int64_t d = t_HexValue[*digit & 0x7F];
        if (d < 0) break;
        value = toolkit::Plus(toolkit::Times(value, 16), d);
    }
    return value;
}

// With an ESC that begins no sequence, and all that comes after it.
std::string WithRest(std::string decoded, Iterator at, Iterator end) {
    toolkit::AppendCharacter(decoded, kEscape);
    for (; at != end; ++at) toolkit::AppendCharacter(decoded, *at);
    return decoded;
}

}  // namespace

std::string t_DecodeEscapes(std::string_view string) {
    const std::vector<char32_t> characters = toolkit::Characters(string);
    std::string decoded;
    const auto last = characters.end();
    for (auto at = characters.begin(); at != last;) {
        std::int64_t code = *at++;
        // What a sequence stands for may be the ESC of the next one.
        while (code == kEscape) {
            const auto end = std::find(at, last, kGroupSeparator);
            if (end == last || end == at) return WithRest(decoded, at, last);
            code = HexadecimalValue(at, end);
            at = end + 1;
        }
        toolkit::AppendCharacter(decoded, code);
    }
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
