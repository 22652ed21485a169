#pragma once

#include <cstdint>

#include "platform/picture.h"

namespace toolkit {

/// A loop over `count` pixels at `source`, bytes that other threads may be writing, and the 4-byte
/// pixels that they make, at `pixels`. `count` is a multiple of 8 at 1 bit and of 2 at 4 bits.
/// Fastest where `source` is a multiple of 16.
using PixelLoop = bool (*)(const std::uint8_t* source, std::uint8_t* pixels, std::int64_t count);

struct PixelConverter {
    PixelLoop Convert = nullptr;  // writes the pixels; false
    PixelLoop Differs = nullptr;  // writes nothing; whether one of the pixels is not there yet
};

/// A converter by vectors of at most 16 bytes; an empty one for a depth that there is not. What the
/// larger vectors leave of a row is left to it.
[[nodiscard]] PixelConverter NarrowConverterFor(std::int64_t bitDepth, platform::PixelOrder order);

}  // namespace toolkit
