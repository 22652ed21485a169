#include "toolkit/core/tables.h"

#include <span>

#include "toolkit/core/output.h"

std::array<std::uint8_t, 256> t_UpperCaseTable;
std::array<std::uint8_t, 256> t_LowerCaseTable;
std::array<std::uint8_t, 16> t_HexDigits;
std::array<std::int64_t, 256> t_HexValue;

namespace {

struct ByteRange {
    std::uint8_t First;
    std::uint8_t Last;
};

constexpr int kCaseDistance = 32;

constexpr ByteRange kLowerCase[] = {{97, 122}, {224, 228}, {231, 246}, {249, 252}};
constexpr ByteRange kUpperCase[] = {{65, 90}, {192, 196}, {199, 214}, {217, 220}};

// Every byte maps to itself, those of `ranges` to the byte `distance` further on.
std::array<std::uint8_t, 256> ShiftedTable(std::span<const ByteRange> ranges, int distance) {
    std::array<std::uint8_t, 256> table{};
    for (std::size_t b = 0; b < table.size(); ++b) table[b] = static_cast<std::uint8_t>(b);
    for (const ByteRange& range : ranges) {
        for (std::size_t b = range.First; b <= range.Last; ++b) {
            table[b] = static_cast<std::uint8_t>(static_cast<int>(b) + distance);
        }
    }
    return table;
}

}  // namespace

void initvxtools() {
    toolkit::PrintLine("initvxtools: Start.");
    t_UpperCaseTable = ShiftedTable(kLowerCase, -kCaseDistance);
    t_LowerCaseTable = ShiftedTable(kUpperCase, kCaseDistance);
    t_HexValue.fill(-1);
    for (std::size_t d = 0; d < t_HexDigits.size(); ++d) {
        const auto digit = static_cast<std::uint8_t>(d < 10 ? d + 48 : d + 55);
        t_HexDigits[d] = digit;
        t_HexValue[t_UpperCaseTable[digit]] = static_cast<std::int64_t>(d);
        t_HexValue[t_LowerCaseTable[digit]] = static_cast<std::int64_t>(d);
    }
    toolkit::PrintLine("initvxtools: End.");
}
