#include "toolkit/core/random.h"

#include "platform/platform.h"
#include "toolkit/core/numbers.h"

constinit toolkit::Shared<std::int64_t> t_RandomLast;

namespace {

constexpr std::uint64_t kLow16 = 0xFFFF;
constexpr int kMostDraws = 100;

// The product of 16 random bits and the low 16 bits of the clock in nanoseconds, drawn again while
// one of the two is 0.
std::uint64_t Sample() {
    std::uint64_t random = 0;
    std::uint64_t time = 0;
    for (int draw = 0; draw < kMostDraws && (random == 0 || time == 0); ++draw) {
        random = platform::Current().Randomness->Next() & kLow16;
        const double nanoseconds = platform::Current().Clock->Now() * 1e9;
        time = static_cast<std::uint64_t>(toolkit::Truncated(nanoseconds)) & kLow16;
    }
    return random * time;
}

// 63 bits: eight from the middle of each of seven samples, seven from the eighth.
std::uint64_t Bits63() {
    std::uint64_t bits = 0;
    for (int i = 0; i < 7; ++i) bits = bits << 8U | (Sample() >> 16U & 0xFFU);
    return bits << 7U | (Sample() >> 16U & 0x7FU);
}

}  // namespace

std::int64_t t_Random(std::int64_t n) {
    if (n == 0) return t_RandomLast;
    const std::uint64_t bound =
        n < 0 ? 0 - static_cast<std::uint64_t>(n) : static_cast<std::uint64_t>(n);
    const auto result = static_cast<std::int64_t>(Bits63() % (bound + 1));
    t_RandomLast = result;
    return result;
}
