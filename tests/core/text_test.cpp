#include <fstream>
#include <limits>
#include <numeric>
#include <random>
#include <utility>
#include <vector>

#include "tests/support/fixture.h"

namespace {

using namespace std::string_literals;

using Texts = ToolkitTest;

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

// What a Text of these bytes, valid UTF-8 or not, becomes.
std::string Decoded(const std::string& bytes) {
    return t_TextToString(t_StringToText(bytes));
}

std::string NumberText(std::int64_t number) {
    return t_TextToString(t_IntToText(number));
}

}  // namespace

TEST_F(Texts, BecomeStringsAsUtf8OrElseByteByByte) {
    // clang-format off
    const std::pair<std::string, std::string> rows[] = {
        {"", ""},
        {"Grün € \U0001F600\x1B" "20AC\x1D", "Grün € \U0001F600\x1B" "20AC\x1D"},  // valid: as it is
        {"A\x80\xE4z", "A\u0080äz"},
        {"\xFC\x1B" "20aC\x1D\x1B" "0041\x1D!", "ü€A!"},       // digits of either case
        {"\xFC\x1B" "D83D\x1D.", "ü\0."s},                     // a surrogate is no character
        {"\xFC\x1B" "20ACX", "ü\x1B" "20ACX"},                 // no GS where one must stand
        {"\xFC\x1B" "20AC", "ü\x1B" "20AC"},                   // ends too early
        {"\xFC\x1B\x1B" "20AC\x1D", "ü\x1B€"},
        {"\xC0\x80", "À\u0080"},                               // longer than need be
        {"\xED\xA0\x80", "í\u00A0\u0080"},                     // a surrogate
        {"\xF4\x90\x80\x80", "ô\u0090\u0080\u0080"},           // above the last character
        {"\xE2\x82", "â\u0082"},                               // cut off
        {"\xC3\xA4\xE4", "Ã¤ä"},                               // one bad byte spoils all
    };
    // clang-format on
    for (const auto& [bytes, string] : rows) EXPECT_EQ(Decoded(bytes), string);
}

TEST_F(Texts, EscapeEveryCharacterOfFourDigits) {
    for (std::int64_t code = 0; code <= 0xFFFF; ++code) {
        const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
        const std::string string = Decoded("\xFF\x1B" + t_HexText(code).substr(4) + "\x1D");
        ASSERT_EQ(t_CharCode(t_MidFrom(string, 2)), surrogate ? 0 : code);
        ASSERT_EQ(t_MidFrom(string, 3), "");
    }
}

TEST_F(Texts, CountCharactersFromOne) {
    const std::string string = "Größe € Größe";
    EXPECT_EQ(t_CharCode("€uro"), 0x20AC);
    EXPECT_EQ(t_CharCode(""), 0);
    EXPECT_EQ(t_MidChar(string, 3) + t_MidChar(string, 13), "öe");
    EXPECT_EQ(t_MidFrom(string, 10), "röße");
    EXPECT_EQ(t_MidFrom(string, 1), string);
    EXPECT_EQ(t_MidFrom(string, kLeast), string);
    EXPECT_EQ(t_MidChar(string, 0) + t_MidChar(string, 14) + t_MidFrom(string, kMost), "");
    EXPECT_EQ(t_InStr(string, "ö", 3), 3);
    EXPECT_EQ(t_InStr(string, "Grö", 2), 9);
    EXPECT_EQ(t_InStr(string, "ö", 12), 0);
    EXPECT_EQ(t_InStr(string, "größe", 1), 0);
    EXPECT_EQ(t_InStr(string, "e", 14), 0);
}

TEST_F(Texts, CutLinesAndMakeBlanks) {
    EXPECT_EQ(t_FirstLine("eins\nzwei\rdrei"), "eins\nzwei");
    EXPECT_EQ(t_FirstLine("eins\nzwei\ndrei"), "eins");
    EXPECT_EQ(t_FirstLine("\rzwei"), "");
    EXPECT_EQ(t_FirstLine("eins"), "eins");
    EXPECT_EQ(t_Spaces(32'767), std::string(32'767, ' '));
    EXPECT_EQ(t_Spaces(0) + t_Spaces(32'768) + t_Spaces(kMost) + t_Spaces(kLeast), "");
}

TEST_F(Texts, KnowTheLowerCaseFormsOfAllScripts) {
    constexpr std::pair<char32_t, char32_t> kRows[] = {
        {U'E', U'e'},   {U'Ü', U'ü'}, {U'Þ', U'þ'},      {U'Ÿ', U'ÿ'}, {U'Ā', U'ā'},
        {U'Ņ', U'ņ'},   {U'Σ', U'σ'}, {U'Ώ', U'ώ'},      {U'Ж', U'ж'}, {U'Ԯ', U'ԯ'},
        {U'Ა', U'ა'}, {U'Ⴀ', U'ⴀ'}, {U'Ꭰ', U'ꭰ'},    {U'ẞ', U'ß'}, {U'Ⓩ', U'ⓩ'},
        {U'Ｚ', U'ｚ'}, {U'𐐀', U'𐐨'}, {U'𞤡', U'𞥃'}};
    for (const auto& [upper, lower] : kRows) {
        EXPECT_EQ(t_LowerCode(upper), lower);
        EXPECT_EQ(t_LowerCode(lower), lower);
    }
    for (const std::int64_t code :
         {std::int64_t{0}, std::int64_t{0x40}, std::int64_t{0x5B}, std::int64_t{215},
          std::int64_t{0xDF}, std::int64_t{0x20AC}, std::int64_t{0x101}, kMost}) {
        EXPECT_EQ(t_LowerCode(code), code);
    }
    EXPECT_EQ(t_LowerCode(-1), 0);
    EXPECT_EQ(t_LowerCode(kLeast), 0);
}

// Against the data that the table was made from, where it is installed.
TEST_F(Texts, LowerCaseFormsAreThoseOfUnicode) {
    std::ifstream data("/usr/share/unicode/UnicodeData.txt");
    if (!data) GTEST_SKIP() << "no Unicode data here";
    std::vector<std::int64_t> lower(0x110000);
    std::iota(lower.begin(), lower.end(), 0);
    for (std::string line; std::getline(data, line);) {
        std::size_t field = 0;
        for (int n = 0; n < 13; ++n) field = line.find(';', field) + 1;
        if (line[field] == ';') continue;
        lower.at(std::stoul(line, nullptr, 16)) = std::stol(line.substr(field), nullptr, 16);
    }
    for (std::int64_t code = 0; code < std::ssize(lower); ++code) {
        ASSERT_EQ(t_LowerCode(code), lower[static_cast<std::size_t>(code)]) << code;
    }
}

TEST_F(Texts, HoldNumbersInDecimal) {
    constexpr std::pair<std::string_view, std::int64_t> kRows[] = {
        {"50", 50}, {" - 12x", -12}, {"+5", 0},  {"abc", 0}, {"", 0},
        {"  ", 0},  {"  7", 7},      {"-", 0},   {"-  ", 0}, {"--5", 0},
        {"3,5", 3}, {"007", 7},      {"\t5", 0}, {"-0", 0},  {"5 6", 5}};
    for (const auto& [bytes, number] : kRows) {
        EXPECT_EQ(t_TextToInt(t_StringToText(bytes)), number) << bytes;
    }
    EXPECT_EQ(NumberText(-305), "-305");
    EXPECT_EQ(NumberText(0), "0");
    EXPECT_EQ(NumberText(kLeast), "-9223372036854775808");
    std::mt19937_64 random(1);
    for (int shift = 0; shift < 64; ++shift) {
        const auto number = static_cast<std::int64_t>(random()) >> shift;
        EXPECT_EQ(NumberText(number), std::to_string(number));
        EXPECT_EQ(t_TextToInt(t_IntToText(number)), number);
    }
}

TEST_F(Texts, WriteNumbersInGermanNotation) {
    struct Row {
        double Value;
        char32_t Fill;
        std::int64_t MinWidth;
        std::int64_t Decimals;
        bool Grouping;
        std::string_view Text;
    };
    // clang-format off
    constexpr Row kRows[] = {
        {3000, ' ', 1, 2, true, "3.000,00"},
        {3.90625, ' ', 1, 2, true, "3,90"},
        {1'234'567, ' ', 1, 2, true, "1.234.567,00"},
        {1'234'567.5, ' ', 1, 1, false, "1234567,5"},
        {0, ' ', 1, 2, true, "0,00"},
        {0.1, ' ', 1, 3, true, "0,100"},
        {2.9999, ' ', 1, 2, true, "2,99"},        // cut, not rounded
        {12.5, ' ', 1, 0, true, "12,"},
        {-123, '0', 1, 1, true, "-123,0"},        // no full stop behind the sign
        {-12.5, '*', 8, 2, true, "*****-12,50"},  // sign and digits fill the width
        {1234, ' ', 6, 2, true, " 1.234,00"},     // and so do full stops
        {7, U'·', 3, 1, true, "··7,0"},
    };
    // clang-format on
    for (const Row& row : kRows) {
        EXPECT_EQ(t_FormatNumber(row.Value, row.Fill, row.MinWidth, row.Decimals, row.Grouping),
                  row.Text);
    }
}
