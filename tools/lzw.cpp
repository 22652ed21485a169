#include "tools/lzw.h"

#include <algorithm>
#include <bit>
#include <map>
#include <optional>
#include <utility>

namespace tools {
namespace {

using Code = std::uint32_t;

constexpr Code kFirstNewCode = 256;
constexpr int kMinimumWidth = 8;

// Always the longest string that the dictionary knows, then one new entry: that string and the
// byte after it.
std::vector<Code> Codes(std::span<const std::uint8_t> bytes) {
    std::vector<Code> codes;
    std::map<std::pair<Code, std::uint8_t>, Code> longer;  // (string, next byte) to string
    Code next = kFirstNewCode;
    std::optional<Code> known;
    for (const std::uint8_t byte : bytes) {
        if (!known) {
            known = byte;
            continue;
        }
        const auto [entry, isNew] = longer.try_emplace({*known, byte}, next);
        if (!isNew) {
            known = entry->second;
            continue;
        }
        ++next;
        codes.push_back(*known);
        known = byte;
    }
    if (known) codes.push_back(*known);
    return codes;
}

int WidthFor(const std::vector<Code>& codes) {
    Code largest = 0;
    for (const Code code : codes) largest = std::max(largest, code);
    return std::max(static_cast<int>(std::bit_width(largest)), kMinimumWidth);
}

std::vector<std::uint8_t> BitStream(const std::vector<Code>& codes, int width) {
    std::vector<std::uint8_t> stream = {static_cast<std::uint8_t>(width)};
    std::uint64_t bits = 0;  // the `count` lowest are waiting
    int count = 0;
    for (const Code code : codes) {
        bits = bits << width | code;
        count += width;
        for (; count >= 8; count -= 8) {
            stream.push_back(static_cast<std::uint8_t>(bits >> (count - 8)));
        }
    }
    if (count > 0) stream.push_back(static_cast<std::uint8_t>(bits << (8 - count)));
    return stream;
}

}  // namespace

std::vector<std::uint8_t> LzwPack(std::span<const std::uint8_t> bytes) {
    const std::vector<Code> codes = Codes(bytes);
    return BitStream(codes, WidthFor(codes));
}

}  // namespace tools
