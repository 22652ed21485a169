#pragma once

#include <cstdint>

#include "toolkit/core/shared.h"

/// The last result of t_Random; 0 before the first call.
extern constinit toolkit::Shared<std::int64_t> t_RandomLast;

/// A random whole number from 0 to `n`, both included, for n of 1 or more; the previous result for
/// n = 0. A negative n counts as its absolute value. Any thread.
[[nodiscard]] std::int64_t t_Random(std::int64_t n);
