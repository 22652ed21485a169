#include "tests/support/fixture.h"
#include "toolkit/core/utf8.h"

namespace {

using namespace std::string_literals;

using Escapes = ToolkitTest;

std::string Escaped(const std::string& digits) {
    return "\x1B" + digits + "\x1D";
}

}  // namespace

TEST_F(Escapes, EveryCharacterComesBackFromItsCode) {
    for (std::int64_t code = 0; code <= 0xFFFF; ++code) {
        if (!toolkit::IsScalar(code)) continue;
        const std::string character = toolkit::CharacterString(code == '\n' ? '\r' : code);
        const std::string encoded = t_EncodeEscapes(toolkit::CharacterString(code));
        ASSERT_EQ(encoded, code < 256 ? character : Escaped(t_HexText(code).substr(4)));
        ASSERT_EQ(t_DecodeEscapes("ä" + encoded + "z"), "ä" + character + "z");
    }
    EXPECT_EQ(t_EncodeEscapes("\U0001F600"), Escaped("F600"));
}

TEST_F(Escapes, UnusualSequencesEnd) {
    struct Row {
        std::string Encoded;
        std::string Decoded;
    };
    const Row rows[] = {
        {"", ""},
        {"x\x1Dy", "x\x1Dy"},
        {"a\x1B", "a\x1B"},
        {"\x1Bz41", "\x1Bz41"},
        {"\x1B\x1D" + Escaped("41"), "\x1B\x1D" + Escaped("41")},
        {Escaped("41") + "x" + Escaped("20ac") + "y", "Ax€y"},
        {Escaped("00004g1"), "\x04"},  // digits end at the first other character
        {Escaped("g41"), "\0"s},
        {Escaped("D800") + Escaped("110000"), "\0\0"s},
        {Escaped("FFFFFFFFFFFFFFFFFFFF"), "\0"s},
        {Escaped("10FFFF"), "\U0010FFFF"},
        {Escaped("´±"), "A"},  // only the low seven bits of a digit count
        {"\x1B" + Escaped("41"), "\0"s},
        {Escaped("001B") + "41\x1D", "A"},  // goes on at the replacement
        {"a" + Escaped("1B") + "z\x1B", "a\x1Bz\x1B"},
        {"a" + Escaped("1B") + "\x1Dz", "a\x1B\x1Dz"},
        {Escaped("1B") + Escaped("1B") + "z", "\0z"s},
    };
    for (const Row& row : rows) EXPECT_EQ(t_DecodeEscapes(row.Encoded), row.Decoded);
}
