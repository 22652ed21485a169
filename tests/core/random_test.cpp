#include <limits>

#include "tests/support/fixture.h"

namespace {

// The clock stands at 2 to the power of 15 nanoseconds: a sample of the random bits r is r shifted
// left by 15, and bits 16 to 23 of it are bits 1 to 8 of r.
class RandomNumbers : public ToolkitTest {
  protected:
    RandomNumbers() {
        desktop.StartTime = 32'768 / 1e9;
        desktop.NextRandom = [this] { return draws.at(drawn++ % draws.size()); };
    }

    // Only the low sixteen bits count; a zero is drawn again.
    std::vector<std::uint32_t> draws = {0xFFFF'0000, 0x0002, 0x0046, 0x008A, 0x00CE,
                                        0xABCD'0113, 0x0156, 0x019A, 0x01DE};
    std::size_t drawn = 0;
};

}  // namespace

TEST_F(RandomNumbers, ArePutTogetherFromEightSamples) {
    constexpr std::int64_t kSamples = (0x01'2345'6789'ABCD << 7) | 0x6F;
    EXPECT_EQ(t_Random(0), 0);
    EXPECT_EQ(t_Random(std::numeric_limits<std::int64_t>::max()), kSamples);
    EXPECT_EQ(drawn, 9U);
    EXPECT_EQ(t_Random(999'999), kSamples % 1'000'000);
    EXPECT_EQ(t_Random(0), kSamples % 1'000'000);
    EXPECT_EQ(drawn, 18U);
}

TEST_F(RandomNumbers, GiveUpAfterAHundredDrawsOfASample) {
    draws = {0};
    EXPECT_EQ(t_Random(5), 0);
    EXPECT_EQ(drawn, 800U);
    desktop.StartTime = 0;
    draws = {0xFFFF};
    EXPECT_EQ(t_Random(5), 0);
    EXPECT_EQ(drawn, 1600U);
}

TEST_F(RandomNumbers, StayWithinTheirBound) {
    desktop.NextRandom = nullptr;
    desktop.StartTime = 800'000'000.123'456;
    std::vector<int> hits(5);
    for (int i = 0; i < 500; ++i) ++hits.at(static_cast<std::size_t>(t_Random(4)));
    for (const int count : hits) EXPECT_GT(count, 0);
}
