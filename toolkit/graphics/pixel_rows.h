#pragma once

#include <cstdint>

#include "platform/picture.h"
#include "toolkit/graphics/pixel_converter.h"

namespace toolkit {

/// The converter for a bit depth and a byte order; an empty one for any other depth than 1, 4, 8,
/// 16, 24 and 32.
[[nodiscard]] PixelConverter ConverterFor(std::int64_t bitDepth, platform::PixelOrder order);

}  // namespace toolkit
