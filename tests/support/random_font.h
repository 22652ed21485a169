#pragma once

#include <cstdint>

#include "tests/support/random.h"
#include "toolkit/font/font.h"

/// A font of cells of width x height pixels that draws every code, in runs of pixels without ink,
/// with full ink and in any grey.
[[nodiscard]] t_Font RandomFont(Random& random, std::int64_t width, std::int64_t height);
