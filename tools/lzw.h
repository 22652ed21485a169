#pragma once

// The compressed form of font data: a bit stream of LZW codes that all have the same width.
//
//   | width in bits | code | code | code | ... | zero bits up to the next byte |
//     1 byte          most significant bit first
//
// Codes 0 to 255 stand for single bytes, each further code for the next dictionary entry. There is
// no clear code and no end code, and the dictionary grows without limit.

#include <cstdint>
#include <span>
#include <vector>

namespace tools {

/// The stream for `bytes`, in the smallest width from 8 bits up that holds its largest code. With
/// 8 bits or more to a code the zero bits at the end are too few to be read as one more code.
[[nodiscard]] std::vector<std::uint8_t> LzwPack(std::span<const std::uint8_t> bytes);

}  // namespace tools
