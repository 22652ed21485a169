#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <type_traits>
#include <utility>

// The bit depths, in bits per pixel, that a picture can have.

namespace toolkit {

inline constexpr int kBitDepths[] = {1, 4, 8, 16, 24, 32};

[[nodiscard]] constexpr bool IsBitDepth(std::int64_t number) {
    return std::find(std::begin(kBitDepths), std::end(kBitDepths), number) != std::end(kBitDepths);
}

/// Whether the first byte of a pixel keeps what it holds when something is drawn.
[[nodiscard]] constexpr bool KeepsFirstByte(std::int64_t bitDepth) {
    return bitDepth == 16 || bitDepth == 32;
}

/// Calls `use` with the bit depth as a std::integral_constant, so that it can be a template's
/// argument; nothing for a number that is no bit depth.
template <typename Use>
constexpr void WithBitDepth(std::int64_t bitDepth, const Use& use) {
    [&]<std::size_t... I>(std::index_sequence<I...>) {
        const auto useIf = [&](auto depth) { return depth() == bitDepth && (use(depth), true); };
        static_cast<void>((useIf(std::integral_constant<int, kBitDepths[I]>()) || ...));
    }
    (std::make_index_sequence<std::size(kBitDepths)>());
}

}  // namespace toolkit
