#include "toolkit/font/lzw.h"

#include <cstddef>

namespace {

constexpr std::int64_t kSingleBytes = 256;
constexpr std::size_t kMostBytes = std::size_t{64} << 20U;

// A dictionary entry as the stretch of the output in which it was first written: the entry made by
// the i-th code is the string of the code before it and the byte that follows that string there.
struct Stretch {
    std::size_t Start;
    std::size_t Length;
};

}  // namespace

std::vector<std::int64_t> t_UnpackCodes(std::span<const std::uint8_t> bytes, std::uint8_t width) {
    std::vector<std::int64_t> codes;
    if (width == 0) return codes;
    codes.reserve(bytes.size() * 8 / width);
    std::uint64_t value = 0;
    int bits = 0;
    for (const std::uint8_t byte : bytes) {
        for (int bit = 7; bit >= 0; --bit) {
            value = value << 1U | (byte >> bit & 1U);
            if (++bits < width) continue;
            codes.push_back(static_cast<std::int64_t>(value));
            value = 0;
            bits = 0;
        }
    }
    return codes;
}

std::vector<std::uint8_t> t_LZWDecompress(std::span<const std::int64_t> codes) {
    std::vector<std::uint8_t> output;
    if (codes.empty()) return output;
    output.push_back(static_cast<std::uint8_t>(codes.front() & 0xFF));
    std::vector<Stretch> dictionary;  // of the codes from 256 on
    dictionary.reserve(codes.size());
    Stretch before{0, 1};
    for (const std::int64_t code : codes.subspan(1)) {
        // The entry that this code adds: the string before and the first byte of this one, which
        // follows it in the output.
        dictionary.push_back({before.Start, before.Length + 1});
        if (code < 0 || code - kSingleBytes >= std::ssize(dictionary)) return {};
        const std::int64_t entry = code - kSingleBytes;
        const std::size_t start = output.size();
        if (entry < 0) {
            output.push_back(static_cast<std::uint8_t>(code));
        } else {
            const Stretch& from = dictionary[static_cast<std::size_t>(entry)];
            if (from.Length > kMostBytes - start) return {};
            // Byte by byte: the newest entry ends with the first byte that is written here.
            for (std::size_t i = 0; i < from.Length; ++i) output.push_back(output[from.Start + i]);
        }
        if (output.size() > kMostBytes) return {};
        before = {start, output.size() - start};
    }
    return output;
}
