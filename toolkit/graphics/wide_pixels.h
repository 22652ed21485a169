#pragma once

#include <cstdint>

#include "platform/picture.h"
#include "toolkit/graphics/pixel_converter.h"

namespace toolkit {

/// The same as ConverterFor, by vectors of 64 and of 32 bytes; an empty one where the processor has
/// none that can be shuffled byte by byte.
[[nodiscard]] PixelConverter WideConverterFor(std::int64_t bitDepth, platform::PixelOrder order);
[[nodiscard]] PixelConverter HalfWideConverterFor(std::int64_t bitDepth,
                                                  platform::PixelOrder order);

}  // namespace toolkit
