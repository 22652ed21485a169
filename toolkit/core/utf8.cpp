#include "toolkit/core/utf8.h"

#include <algorithm>

#include "platform/utf8.h"

namespace toolkit {

namespace {

// A lead byte says how many bytes follow, which of its bits count, and the smallest code that may
// be written that long.
struct LeadRow {
    std::uint8_t Mask;
    std::uint8_t Pattern;
    std::uint8_t Length;
    char32_t Smallest;
};

constexpr LeadRow kLeads[] = {
    {0x80, 0x00, 1, 0},         // ASCII
    {0xE0, 0xC0, 2, 0x80},      //
    {0xF0, 0xE0, 3, 0x800},     //
    {0xF8, 0xF0, 4, 0x1'0000},  //
};

constexpr Decoded kInvalid = {kReplacementCharacter, 1, false};

std::size_t BytesOfCharacters(std::string_view string, std::int64_t count) {
    std::size_t bytes = 0;
    for (; count > 0 && bytes < string.size(); --count) {
        bytes += DecodeFirst(string.substr(bytes)).Length;
    }
    return bytes;
}

}  // namespace

Decoded DecodeFirst(std::string_view bytes) {
    const auto lead = static_cast<std::uint8_t>(bytes.front());
    const auto* const row =
        std::find_if(std::begin(kLeads), std::end(kLeads),
                     [lead](const LeadRow& r) { return (lead & r.Mask) == r.Pattern; });
    if (row == std::end(kLeads) || bytes.size() < row->Length) return kInvalid;
    char32_t code = lead & static_cast<std::uint8_t>(~row->Mask);
    for (const char c : bytes.substr(1, row->Length - 1)) {
        const auto byte = static_cast<std::uint8_t>(c);
        if ((byte & 0xC0U) != 0x80U) return kInvalid;
        code = code << 6U | (byte & 0x3FU);
    }
    if (code < row->Smallest || !IsScalar(code)) return kInvalid;
    return {code, row->Length, true};
}

bool IsValidUtf8(std::string_view bytes) {
    while (!bytes.empty()) {
        const Decoded next = DecodeFirst(bytes);
        if (!next.Valid) return false;
        bytes.remove_prefix(next.Length);
    }
    return true;
}

std::vector<char32_t> Characters(std::string_view string) {
    std::vector<char32_t> codes;
    codes.reserve(string.size());
    while (!string.empty()) {
        const Decoded next = DecodeFirst(string);
        codes.push_back(next.Code);
        string.remove_prefix(next.Length);
    }
    return codes;
}

std::int64_t LengthInCharacters(std::string_view string) {
    std::int64_t length = 0;
    for (; !string.empty(); ++length) string.remove_prefix(DecodeFirst(string).Length);
    return length;
}

void AppendCharacter(std::string& string, std::int64_t code) {
    platform::AppendUtf8(string, static_cast<char32_t>(IsScalar(code) ? code : 0));
}

std::string CharacterString(std::int64_t code) {
    std::string string;
    AppendCharacter(string, code);
    return string;
}

std::string_view Substring(std::string_view string, std::int64_t first, std::int64_t count) {
    string.remove_prefix(BytesOfCharacters(string, first));
    return string.substr(0, BytesOfCharacters(string, count));
}

}  // namespace toolkit
