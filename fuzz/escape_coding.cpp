#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/support.h"
#include "toolkit/core/utf8.h"

// The input is text: as the bytes of a Text, and as a string.

namespace {

void CheckText(const std::string& bytes) {
    Text text;
    text.Elements.assign(bytes.begin(), bytes.end());
    const std::string string = t_TextToString(text);
    fuzz::Check(toolkit::IsValidUtf8(string), "a string is UTF-8");
    if (toolkit::IsValidUtf8(bytes)) fuzz::Check(string == bytes, "UTF-8 stays as it is");
    fuzz::Check(string.size() <= 2 * bytes.size(), "a byte becomes two at most");
    fuzz::Check(
        t_StringToText(string).Elements == std::vector<std::uint8_t>(string.begin(), string.end()),
        "a Text holds the string's bytes");
}

void CheckEscapes(const std::string& string) {
    const std::string decoded = t_DecodeEscapes(string);
    fuzz::Check(toolkit::Characters(decoded).size() <= toolkit::Characters(string).size(),
                "decoding never makes more characters");
    const std::string encoded = t_EncodeEscapes(string);
    bool plain = true;  // neither escapes, nor line feeds, nor characters that codes do not hold
    for (const char32_t c : toolkit::Characters(string)) {
        plain = plain && c != 27 && c != 10 && c <= 0xFFFF;
        fuzz::Check(c <= 255 || encoded.find('\x1D') != std::string::npos, "others are escaped");
    }
    for (const char32_t c : toolkit::Characters(encoded)) {
        fuzz::Check(c <= 255 && c != 10, "what is encoded has one byte for a character");
    }
    if (plain && toolkit::IsValidUtf8(string)) {
        fuzz::Check(t_DecodeEscapes(encoded) == string, "what was encoded comes back");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static_cast<void>(fuzz::Toolkit::Fresh());
    const std::string bytes(data, data + size);
    CheckText(bytes);
    CheckEscapes(bytes);
    static_cast<void>(t_ExportText(bytes));
    return 0;
}
