#include "toolkit/font/lzw.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "tests/support/random.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using Codes = std::vector<std::int64_t>;

// The plain way: a dictionary of strings.
Bytes Decoded(const Codes& codes) {
    if (codes.empty()) return {};
    std::map<std::int64_t, std::string> dictionary;
    for (int code = 0; code < 256; ++code) dictionary[code] = static_cast<char>(code);
    std::string before(1, static_cast<char>(codes[0] & 0xFF));
    std::string output = before;
    for (std::int64_t i = 0; i < std::ssize(codes) - 1; ++i) {
        const std::int64_t code = codes.data()[i + 1];
        const bool known = dictionary.contains(code);
        if (!known && code != 256 + i) return {};
        const std::string entry = known ? dictionary[code] : before + before[0];
        output += entry;
        dictionary[256 + i] = before + entry[0];
        before = entry;
    }
    return {output.begin(), output.end()};
}

Codes Unpacked(const Bytes& bytes, std::size_t width) {
    std::string bits;
    for (const std::uint8_t byte : bytes) {
        for (int bit = 7; bit >= 0; --bit) bits += (byte >> bit & 1) != 0 ? '1' : '0';
    }
    Codes codes;
    for (std::size_t at = 0; width > 0 && at + width <= bits.size(); at += width) {
        codes.push_back(static_cast<std::int64_t>(std::stoull(bits.substr(at, width), nullptr, 2)));
    }
    return codes;
}

}  // namespace

TEST(CompressedCodes, AreCutFromTheHighestBitOn) {
    Random random;
    for (std::uint8_t width = 0; width <= 64; ++width) {
        for (std::int64_t length = 0; length < 40; ++length) {
            const Bytes bytes = random.Bytes(length);
            EXPECT_EQ(t_UnpackCodes(bytes, width), Unpacked(bytes, width)) << int{width};
        }
    }
}

TEST(CompressedCodes, DecodeAsWithADictionaryOfStrings) {
    Random random;
    int valid = 0;
    EXPECT_EQ(t_LZWDecompress(Codes{0x141, 66, 256}), (Bytes{65, 66, 65, 66}));
    EXPECT_EQ(t_LZWDecompress(Codes{}), Bytes{});
    EXPECT_EQ(t_LZWDecompress(Codes{65, INT64_MIN + 66}), Bytes{});
    for (int run = 0; run < 5000; ++run) {
        Codes codes;
        const bool onlyKnown = random.Coin();
        const std::int64_t singles = random.Between(1, 4);  // few, so that entries are reused
        for (std::int64_t i = -1, length = random.Between(0, 80); i < length; ++i) {
            const std::int64_t next = 256 + i;
            const bool single = i < 0 || random.Between(0, 3) == 0;
            codes.push_back(single ? random.Between(0, singles) : random.Between(256, next));
            if (!onlyKnown && random.Between(0, 60) == 0) {
                codes.back() = next + random.Between(-600, 2);
            }
        }
        const Bytes expected = Decoded(codes);
        if (expected.size() > codes.size()) ++valid;
        ASSERT_EQ(t_LZWDecompress(codes), expected);
    }
    EXPECT_GT(valid, 2000);
}

// Every code stands for a string one byte longer than the one before.
TEST(CompressedCodes, ThatSwellAreDecodedUpTo64MiB) {
    Codes codes = {65};
    while (codes.size() < 11'584) codes.push_back(255 + std::ssize(codes));
    EXPECT_EQ(t_LZWDecompress(codes).size(), 11'584U * 11'585 / 2);
    codes.push_back(255 + std::ssize(codes));
    EXPECT_EQ(t_LZWDecompress(codes).size(), 0U);
}
