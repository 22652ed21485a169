#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "fuzz/support.h"
#include "toolkit/font/lzw.h"

// The first byte is the width of the codes, the rest is the stream. The plain way, with bits in a
// string and a dictionary of strings, gives the same.

namespace {

using Codes = std::vector<std::int64_t>;

constexpr std::size_t kMostBytes = std::size_t{64} << 20U;
constexpr std::size_t kMostKept = std::size_t{16} << 20U;  // in the plain dictionary

Codes Unpacked(std::span<const std::uint8_t> bytes, std::size_t width) {
    Codes codes;
    const std::size_t count = width == 0 ? 0 : bytes.size() * 8 / width;
    for (std::size_t i = 0; i < count; ++i) {
        std::uint64_t code = 0;
        for (std::size_t bit = i * width; bit < (i + 1) * width; ++bit) {
            code = code << 1U | (bytes[bit / 8] >> (7 - bit % 8) & 1U);
        }
        codes.push_back(static_cast<std::int64_t>(code));
    }
    return codes;
}

// No value when the strings take more memory than the check is worth.
std::optional<std::string> Decoded(const Codes& codes) {
    if (codes.empty()) return "";
    std::map<std::int64_t, std::string> dictionary;
    for (int code = 0; code < 256; ++code) dictionary[code] = std::string(1, char(code));
    std::string before(1, static_cast<char>(codes[0]));
    std::string output = before;
    std::size_t kept = 0;
    std::int64_t next = 256;
    for (const std::int64_t code : std::span(codes).subspan(1)) {
        const auto known = dictionary.find(code);
        if (known == dictionary.end() && code != next) return "";
        const std::string entry = known != dictionary.end() ? known->second : before + before[0];
        output += entry;
        kept += before.size() + 1;
        if (kept > kMostKept) return std::nullopt;
        dictionary[next++] = before + entry[0];
        before = entry;
    }
    return output;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::uint8_t width = input.Byte();
    const std::span<const std::uint8_t> stream = input.Rest();
    const Codes codes = t_UnpackCodes(stream, width);
    fuzz::Check(codes == Unpacked(stream, width), "codes are cut from the highest bit on");
    const std::vector<std::uint8_t> bytes = t_LZWDecompress(codes);
    fuzz::Check(bytes.size() <= kMostBytes, "what a stream gives is bounded");
    const std::optional<std::string> expected = Decoded(codes);
    fuzz::Check(
        !expected ||
            std::equal(bytes.begin(), bytes.end(), expected->begin(), expected->end(),
                       [](std::uint8_t a, char b) { return a == static_cast<std::uint8_t>(b); }),
        "a dictionary of strings gives the same");
    return 0;
}
