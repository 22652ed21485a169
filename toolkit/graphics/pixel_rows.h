#pragma once

#include <cstdint>

#include "platform/picture.h"

namespace toolkit {

/// Bytes that a converter may read beyond the last source byte; their values do not matter.
inline constexpr std::int64_t kConverterSlack = 16;

/// Turns `count` pixels at `source` into 4-byte pixels at `pixels`. `count` is a multiple of 8 at 1
/// bit and of 2 at 4 bits.
using PixelConverter = void (*)(const std::uint8_t* source, std::uint8_t* pixels,
                                std::int64_t count);

/// The converter for a bit depth and a byte order; nullptr for any other depth than 1, 4, 8, 16, 24
/// and 32.
[[nodiscard]] PixelConverter ConverterFor(std::int64_t bitDepth, platform::PixelOrder order);

}  // namespace toolkit
