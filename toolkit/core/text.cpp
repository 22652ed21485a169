#include "toolkit/core/text.h"

#include <algorithm>

#include "toolkit/core/codes.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/tables.h"
#include "toolkit/core/utf8.h"

namespace {

using toolkit::kBlank;
using toolkit::kEscape;
using toolkit::kGroupSeparator;
using toolkit::kMinus;

constexpr std::size_t kEscapeLength = 6;  // ESC, four digits, GS

bool OpensEscape(const std::vector<std::uint8_t>& bytes, std::size_t at) {
    return bytes[at] == kEscape && bytes.size() - at >= kEscapeLength &&
           bytes[at + kEscapeLength - 1] == kGroupSeparator;
}

std::int64_t EscapedCode(const std::vector<std::uint8_t>& bytes, std::size_t at) {
    std::int64_t code = 0;
    for (std::size_t i = 1; i <= 4; ++i) {
        code = code * 16 + std::max<std::int64_t>(t_HexValue[bytes[at + i]], 0);
    }
    return code;
}

}  // namespace

Text t_StringToText(std::string_view string) {
    return {{string.begin(), string.end()}};
}

std::string t_TextToString(const Text& text) {
    const std::vector<std::uint8_t>& bytes = text.Elements;
    std::string string(bytes.begin(), bytes.end());
    if (toolkit::IsValidUtf8(string)) return string;
    string.clear();
    for (std::size_t i = 0; i < bytes.size();) {
        const bool escape = OpensEscape(bytes, i);
        toolkit::AppendCharacter(string, escape ? EscapedCode(bytes, i) : bytes[i]);
        i += escape ? kEscapeLength : 1;
    }
    return string;
}

std::int64_t t_TextToInt(const Text& text) {
    auto at = text.Elements.begin();
    const auto end = text.Elements.end();
    const auto skipBlanks = [&] { at = std::find_if(at, end, [](auto b) { return b != kBlank; }); };
    skipBlanks();
    const bool negative = at != end && *at == kMinus;
    if (negative) {
        ++at;
        skipBlanks();
    }
    std::int64_t value = 0;  // of the sign that the result has, so that the smallest number fits
    for (; at != end && toolkit::IsDigit(*at); ++at) {
        const std::int64_t digit = *at - '0';
        value = toolkit::Plus(toolkit::Times(value, 10), negative ? -digit : digit);
    }
    return value;
}

Text t_IntToText(std::int64_t number) {
    return t_StringToText(std::to_string(number));
}
