#include "toolkit/text/finished_glyphs.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/random.h"

TEST(GlyphStore, GivesEveryGlyphAsFinishedAnewAndKeepsABoundedAmount) {
    Random random;
    toolkit::GlyphStore store;
    std::vector<std::vector<std::uint8_t>> glyphs;
    for (const std::int64_t size : {8, 8, 8, 64, 72, 512, 16'384}) {
        glyphs.push_back(random.Bytes(size));
        glyphs.push_back(glyphs.back());
        glyphs.back().back() ^= 1;  // the same but for one pixel
    }
    std::vector<std::uint8_t> finished;
    std::size_t before = 0;
    int emptied = 0;
    for (int i = 0; i < 4000; ++i) {
        const toolkit::GlyphKey key{static_cast<std::uint8_t>(random.Between(0, 40)),
                                    static_cast<std::uint8_t>(random.OneOf({0xF0, 0xE0, 0x12})),
                                    static_cast<std::uint8_t>(random.OneOf({1, 4, 8, 16, 24, 32}))};
        const auto& grey = glyphs[static_cast<std::size_t>(random.Between(0, 13))];
        toolkit::FinishGlyph(key, grey, finished);
        for (int times = 0; times < 3; ++times) {  // kept from the second time on
            const std::uint8_t* const found = store.Find(key, grey);
            if (found == nullptr) {
                ASSERT_EQ(times, 0);
                continue;
            }
            ASSERT_TRUE(
                std::equal(found, found + grey.size() * key.BitDepth / 8, finished.begin()));
        }
        ASSERT_LE(store.Bytes(), toolkit::GlyphStore::kMostBytes);
        if (store.Bytes() < before) ++emptied;
        before = store.Bytes();
    }
    EXPECT_GT(emptied, 0);
}
