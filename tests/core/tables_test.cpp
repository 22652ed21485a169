#include <cctype>

#include "tests/support/fixture.h"

using Tables = ToolkitTest;

TEST_F(Tables, ChangeTheCaseOfTheirLettersOnly) {
    // The first and the last letter of each run of letters, and what looks like one.
    for (const std::size_t b : {97U, 122U, 224U, 228U, 231U, 246U, 249U, 252U}) {
        EXPECT_EQ(t_UpperCaseTable.at(b), b - 32);
    }
    for (const std::size_t b : {229U, 230U, 247U, 248U, 253U, 254U, 255U}) {
        EXPECT_EQ(t_UpperCaseTable.at(b), b);
        EXPECT_EQ(t_LowerCaseTable.at(b - 32), b - 32);
    }
    int letters = 0;
    for (std::size_t b = 0; b < 256; ++b) {
        const std::uint8_t upper = t_UpperCaseTable.at(b);
        const std::uint8_t lower = t_LowerCaseTable.at(b);
        if (upper != b) ++letters;
        EXPECT_TRUE(upper == b || (upper + 32U == b && t_LowerCaseTable.at(upper) == b)) << b;
        EXPECT_TRUE(lower == b || t_UpperCaseTable.at(lower) == b) << b;
    }
    EXPECT_EQ(letters, 26 + 5 + 16 + 4);
}

TEST_F(Tables, HoldTheHexadecimalDigitsAndTheirValues) {
    EXPECT_EQ(std::string(t_HexDigits.begin(), t_HexDigits.end()), "0123456789ABCDEF");
    for (int b = 0; b < 256; ++b) {
        const std::string digit(1, static_cast<char>(b));
        const bool isDigit = b < 128 && std::isxdigit(b) != 0;
        EXPECT_EQ(t_HexValue.at(static_cast<std::size_t>(b)),
                  isDigit ? std::stoi(digit, nullptr, 16) : -1);
    }
    EXPECT_EQ(t_HexText(0xFFFFFF), "00FFFFFF");
    EXPECT_EQ(t_HexText(-1), "FFFFFFFF");
    EXPECT_EQ(t_HexText(0x1234'5678'9ABC'DEF0), "9ABCDEF0");
}

TEST_F(Tables, AreBuiltBetweenTwoLogLines) {
    const auto upper = t_UpperCaseTable;
    t_UpperCaseTable.fill(1);
    EXPECT_EQ(Printed(initvxtools), "initvxtools: Start.\ninitvxtools: End.\n");
    EXPECT_EQ(t_UpperCaseTable, upper);
}
