#include <algorithm>
#include <set>

#include "platform/search.h"
#include "tests/support/fixture.h"

// The font and sound files that the program comes with.

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::int64_t kWidth = 16;
constexpr std::int64_t kHeight = 32;

class Resources : public ToolkitTest {
  protected:
    Resources() { desktop.ResourceFolder = KORVANDI_RESOURCES; }

    static Bytes Glyph(const t_Font& font, std::int64_t code) {
        const auto start = font.Data.begin() + code * kWidth * kHeight;
        return {start, start + kWidth * kHeight};
    }

    static void ExpectBlocks(const t_Font& font) {
        for (std::int64_t code = 0; code <= 14; ++code) {
            Bytes expected;
            for (std::int64_t i = 0; i < kWidth * kHeight; ++i) {
                const bool left = i % kWidth < kWidth / 2;
                const int bit = i < kWidth * kHeight / 2 ? (left ? 8 : 4) : (left ? 2 : 1);
                expected.push_back((code & bit) == 0 ? 255 : 0);
            }
            EXPECT_EQ(Glyph(font, code), expected) << code;
        }
        // The rule: every row has one grey from edge to edge, one is full ink.
        const Bytes rule = Glyph(font, 156);
        for (auto row = rule.begin(); row != rule.end(); row += kWidth) {
            EXPECT_EQ(std::count(row, row + kWidth, *row), kWidth);
        }
        EXPECT_TRUE(platform::Contains(rule, 255) && platform::Contains(rule, 0));
    }

    static void ExpectDistinctCharacters(const t_Font& font) {
        std::set<Bytes> seen = {Bytes(kWidth * kHeight, 0)};
        EXPECT_EQ(Glyph(font, ' '), *seen.begin());
        std::vector<std::int64_t> codes = {0xC4, 0xD6, 0xDC, 0xE4, 0xF6, 0xFC, 0xDF};  // umlauts
        for (std::int64_t code = 33; code <= 126; ++code) codes.push_back(code);
        for (const auto code : codes) EXPECT_TRUE(seen.insert(Glyph(font, code)).second) << code;
    }
};

}  // namespace

TEST_F(Resources, HoldTwoCompleteCompressedFonts) {
    for (const std::string name : {"MenloBold 16x32.font", "MenloRegular 16x32.font"}) {
        SCOPED_TRACE(name);
        const Bytes file = getbinaryfromfile(KORVANDI_RESOURCES "/" + name);
        ASSERT_GT(file.size(), 16U);
        EXPECT_EQ(file[5], 102);
        const t_Font font = t_LoadFontResource(name);
        EXPECT_TRUE(font.HeaderSize == 16 && font.Format == 2);
        EXPECT_TRUE(font.Start == 0 && font.End == 255);
        EXPECT_TRUE(font.Width == kWidth && font.Height == kHeight);
        ASSERT_EQ(font.Data.size(), 256U * kWidth * kHeight);
        ExpectBlocks(font);
        ExpectDistinctCharacters(font);
    }
    EXPECT_EQ(desktop.Printed(), "");
}

TEST_F(Resources, HoldTwoWholeSoundFiles) {
    for (const std::string name : {"click.aif", "sysbeep.aif"}) {
        const Bytes file = getbinaryfromfile(KORVANDI_RESOURCES "/" + name);
        ASSERT_GT(file.size(), 12U) << name;
        EXPECT_EQ(std::string(file.begin(), file.begin() + 4), "FORM") << name;
        EXPECT_EQ(std::string(file.begin() + 8, file.begin() + 12), "AIFF") << name;
        EXPECT_EQ(file[4] << 24 | file[5] << 16 | file[6] << 8 | file[7], std::ssize(file) - 8);
    }
}
