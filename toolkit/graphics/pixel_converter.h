#pragma once

#include <cstdint>

namespace toolkit {

/// A loop over `count` pixels at `source`, bytes that other threads may be writing, and the 4-byte
/// pixels that they make, at `pixels`. `count` is a multiple of 8 at 1 bit and of 2 at 4 bits.
/// Fastest where `source` is a multiple of 16.
using PixelLoop = bool (*)(const std::uint8_t* source, std::uint8_t* pixels, std::int64_t count);

struct PixelConverter {
    PixelLoop Convert = nullptr;  // writes the pixels; false
    PixelLoop Differs = nullptr;  // writes nothing; whether one of the pixels is not there yet
};

}  // namespace toolkit
