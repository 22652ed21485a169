#include "toolkit/core/memory_changes.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "toolkit/core/memory.h"
#include "toolkit/core/shared_bytes.h"

namespace toolkit {

namespace {

constinit std::array<Moment, kWriteMarks> changes{};  // when a piece's mark was taken last
constinit Moment now = 0;

// The pieces that hold these bytes: the first one, and how many.
template <typename OfAll>
std::span<typename OfAll::value_type> Pieces(OfAll& all, std::int64_t address, std::int64_t count) {
    const std::int64_t first = address / kMarkedPiece;
    const std::int64_t last = (address + count - 1) / kMarkedPiece;
    return std::span(all).subspan(static_cast<std::size_t>(first),
                                  static_cast<std::size_t>(last - first + 1));
}

}  // namespace

Moment TakeMarks(std::int64_t address, std::int64_t count) {
    ++now;
    if (count < 1) return now;
    auto change = Pieces(changes, address, count).begin();
    for (std::uint8_t& mark : Pieces(writeMarks, address, count)) {
        if (TakeMark(&mark)) *change = now;
        ++change;
    }
    return now;
}

bool ChangedSince(Moment moment, std::int64_t address, std::int64_t count) {
    if (count < 1) return false;
    const auto pieces = Pieces(changes, address, count);
    return t_Memory.IsWrittenUnmarked() ||
           std::any_of(pieces.begin(), pieces.end(),
                       [moment](Moment change) { return change > moment; });
}

}  // namespace toolkit
