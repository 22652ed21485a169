#pragma once

#include <cstdint>

#include "platform/picture.h"

namespace toolkit {

/// Turns `count` pixels at `source`, bytes that other threads may be writing, into 4-byte pixels at
/// `pixels`. `count` is a multiple of 8 at 1 bit and of 2 at 4 bits. Fastest where `source` is a
/// multiple of 16. The result is whether a pixel was another one before.
using PixelConverter = bool (*)(const std::uint8_t* source, std::uint8_t* pixels,
                                std::int64_t count);

/// The converter for a bit depth and a byte order; nullptr for any other depth than 1, 4, 8, 16, 24
/// and 32.
[[nodiscard]] PixelConverter ConverterFor(std::int64_t bitDepth, platform::PixelOrder order);

}  // namespace toolkit
