#include "toolkit/core/strings.h"

#include <algorithm>
#include <iterator>

#include "toolkit/core/lower_case.h"
#include "toolkit/core/utf8.h"

namespace {

constexpr std::int64_t kMostSpaces = 32'767;

// How far the lower-case form of an upper-case letter lies behind it; 0 for other characters.
std::int64_t LowerCaseDistance(std::int64_t code) {
    const auto* const behind = std::upper_bound(
        std::begin(toolkit::kLowerCaseRanges), std::end(toolkit::kLowerCaseRanges), code,
        [](std::int64_t wanted, const toolkit::CaseRange& range) { return wanted < range.First; });
    if (behind == std::begin(toolkit::kLowerCaseRanges)) return 0;
    const toolkit::CaseRange& range = behind[-1];
    return code <= range.Last && (code - range.First) % range.Step == 0 ? range.Distance : 0;
}

}  // namespace

std::int64_t t_CharCode(std::string_view string) {
    return string.empty() ? 0 : static_cast<std::int64_t>(toolkit::DecodeFirst(string).Code);
}

std::string t_MidChar(std::string_view string, std::int64_t n) {
    return n < 1 ? std::string() : std::string(toolkit::Substring(string, n - 1, 1));
}

std::string t_MidFrom(std::string_view string, std::int64_t n) {
    string.remove_prefix(toolkit::Substring(string, 0, n < 2 ? 0 : n - 1).size());
    return std::string(string);
}

std::int64_t t_InStr(std::string_view string, std::string_view part, std::int64_t start) {
    const std::size_t from = toolkit::Substring(string, 0, start < 2 ? 0 : start - 1).size();
    const std::size_t found = string.find(part, from);
    if (part.empty() || found == std::string_view::npos) return 0;
    return toolkit::LengthInCharacters(string.substr(0, found)) + 1;
}

std::string t_FirstLine(std::string_view string) {
    std::size_t end = string.find('\r');
    if (end == std::string_view::npos) end = string.find('\n');
    return std::string(string.substr(0, end));
}

std::string t_FileNameOfPath(std::string_view path) {
    return std::string(path.substr(path.rfind('/') + 1));
}

std::string t_Spaces(std::int64_t n) {
    return n < 1 || n > kMostSpaces ? std::string() : std::string(static_cast<std::size_t>(n), ' ');
}

std::int64_t t_LowerCode(std::int64_t code) {
    return code < 0 ? 0 : code + LowerCaseDistance(code);
}
