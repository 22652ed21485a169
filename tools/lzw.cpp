#include "tools/lzw.h"

#include <algorithm>
#include <bit>
#include <map>
#include <utility>

namespace tools {
namespace {

using Code = std::uint32_t;

constexpr Code kFirstNewCode = 256;
constexpr int kMinimumWidth = 8;
constexpr int kMaximumWidth = 32;

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

// The code that begins `bit` bits after the width byte.
Code CodeAt(std::span<const std::uint8_t> stream, std::size_t bit, std::size_t width) {
    Code code = 0;
    for (const std::size_t end = bit + width; bit < end; ++bit) {
        code = code << 1 | (stream[1 + bit / 8] >> (7 - bit % 8) & 1U);
    }
    return code;
}

// Every dictionary entry is a run of the bytes written so far: the string of a code together with
// the first byte of the string after it.
struct Run {
    std::size_t Start;
    std::size_t Length;
};

}  // namespace

std::vector<std::uint8_t> LzwPack(std::span<const std::uint8_t> bytes) {
    const std::vector<Code> codes = Codes(bytes);
    return BitStream(codes, WidthFor(codes));
}

std::optional<std::vector<std::uint8_t>> LzwUnpack(std::span<const std::uint8_t> stream,
                                                   std::size_t limit) {
    if (stream.empty() || stream[0] < kMinimumWidth || stream[0] > kMaximumWidth) {
        return std::nullopt;
    }
    const std::size_t width = stream[0];
    const std::size_t bitsInAll = (stream.size() - 1) * 8;
    std::vector<std::uint8_t> bytes;
    std::vector<Run> runs;
    for (std::size_t bit = 0; bit + width <= bitsInAll; bit += width) {
        const Code code = CodeAt(stream, bit, width);
        const std::size_t start = bytes.size();
        if (code < kFirstNewCode) {
            bytes.push_back(static_cast<std::uint8_t>(code));
        } else {
            if (code - kFirstNewCode >= runs.size()) return std::nullopt;
            const Run run = runs[code - kFirstNewCode];
            if (run.Length > limit - std::min(start, limit)) return std::nullopt;
            // The newest run may reach one byte into what is written here.
            for (std::size_t i = 0; i < run.Length; ++i) bytes.push_back(bytes[run.Start + i]);
        }
        if (bytes.size() > limit) return std::nullopt;
        runs.push_back({start, bytes.size() - start + 1});
    }
    return bytes;
}

}  // namespace tools
