#include <algorithm>
#include <limits>

#include "tests/support/fixture.h"
#include "tests/support/random.h"
#include "toolkit/core/memory_changes.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kLeast = std::numeric_limits<std::int64_t>::min();

class MemoryRuns : public ToolkitTest {
  protected:
    MemoryRuns() { t_InitMemory(); }
    bool MemoryIs(const Bytes& bytes) {
        return std::equal(bytes.begin(), bytes.end(), t_Memory.data(),
                          t_Memory.data() + t_Memory.size());
    }
};

constexpr std::int64_t kArea = 20'000;

// Whether of the area at `base` the pieces of a run changed since then, and no others.
bool CountsAsChanged(toolkit::Moment since, std::int64_t base, std::int64_t address,
                     std::int64_t count) {
    for (std::int64_t piece = base; piece < base + kArea; piece += toolkit::kMarkedPiece) {
        const std::int64_t first = piece - piece % toolkit::kMarkedPiece;
        const bool changed = address < first + toolkit::kMarkedPiece && address + count > first;
        if (toolkit::ChangedSince(since, piece, 1) != changed) return false;
    }
    return true;
}

// Whether a run and what lies around it, read in one piece, are as in the model.
bool HoldsAround(const Bytes& model, std::int64_t address, std::int64_t count) {
    constexpr std::int64_t kMargin = 32;
    const std::int64_t from = std::max<std::int64_t>(address - kMargin, 0);
    const std::int64_t to = std::min(address + count + kMargin, t_Memory.size());
    Bytes seen(static_cast<std::size_t>(to - from));
    return toolkit::ReadRun(from, seen) &&
           std::equal(seen.begin(), seen.end(), model.data() + from);
}

}  // namespace

TEST_F(MemoryRuns, BehaveLikeSingleBytesAtEveryPlaceAndLength) {
    // Places close together, so that runs overlap; at both ends of the memory and in its middle.
    const std::int64_t bases[] = {0, 0x7F'FFFB, t_Memory.size() - kArea};
    Random random;
    Bytes model(static_cast<std::size_t>(t_Memory.size()), 255);
    toolkit::Moment taken = toolkit::TakeMarks(0, t_Memory.size());
    for (int step = 0; step < 9'000; ++step) {
        const std::int64_t base = bases[random.Between(0, 2)];
        const std::int64_t way = random.Between(0, 4);
        const std::int64_t most = random.Between(0, 3) == 0 ? 9'000 : 40;
        const std::int64_t count = way == 2 ? 1 : random.Between(1, most);
        const std::int64_t last = base + kArea - count;
        const std::int64_t address = random.Between(0, 7) == 0 ? last : random.Between(base, last);
        const std::int64_t other = random.Between(base, last);
        std::uint8_t* const at = model.data() + address;
        const Bytes run = random.Bytes(count);
        switch (way) {
            case 0:
                ASSERT_TRUE(toolkit::WriteRun(address, run));
                std::copy(run.begin(), run.end(), at);
                break;
            case 1:
                ASSERT_TRUE(toolkit::FillRun(address, count, static_cast<std::uint8_t>(step)));
                std::fill(at, at + count, static_cast<std::uint8_t>(step));
                break;
            case 2:
                toolkit::Poke(address, 1);
                *at = 1;
                break;
            default:
                t_MoveMemory(other, address, count);
                const Bytes copy(model.data() + other, model.data() + other + count);
                std::copy(copy.begin(), copy.end(), at);
        }
        const toolkit::Moment before = std::exchange(taken, toolkit::TakeMarks(base, kArea));
        ASSERT_TRUE(CountsAsChanged(before, base, address, count));
        ASSERT_TRUE(HoldsAround(model, address, count)) << address << ", " << count << " bytes";
    }
    EXPECT_TRUE(MemoryIs(model));
}

TEST_F(MemoryRuns, LeaveTheMemoryAloneWhenTheyWouldLeaveIt) {
    const std::int64_t size = t_Memory.size();
    const std::pair<std::int64_t, std::int64_t> rows[] = {
        {-1, 2},    {size, 1},      {size - 7, 8}, {0, size + 1}, {0, -1},
        {5, kMost}, {kMost, kMost}, {kMost, 1},    {kLeast, 9},   {kLeast, kMost}};
    for (const auto& [address, count] : rows) {
        SCOPED_TRACE(testing::Message() << address << ", " << count);
        EXPECT_FALSE(toolkit::FillRun(address, count, 7));
        EXPECT_FALSE(toolkit::MoveRun(0, address, count));
        const std::string line = count < 1 ? "" : "t_MoveMemory: Address out of range.\n";
        EXPECT_EQ(Printed([&, a = address, n = count] { t_MoveMemory(a, 0, n); }), line);
        EXPECT_EQ(Printed([&, a = address, n = count] { t_MoveMemory(0, a, n); }), line);
    }
    Bytes run(8, 0xA5);
    for (const std::int64_t address : {std::int64_t{-1}, size, kMost, kLeast}) {
        EXPECT_FALSE(toolkit::WriteRun(address, run));
        EXPECT_FALSE(toolkit::ReadRun(address, run));
        toolkit::Poke(address, 7);
        EXPECT_EQ(toolkit::Peek(address), 0);
    }
    EXPECT_FALSE(toolkit::WriteRun(size - 7, run));
    EXPECT_EQ(run, Bytes(8, 0xA5));
    EXPECT_TRUE(MemoryIs(Bytes(static_cast<std::size_t>(size), 255)));
}
