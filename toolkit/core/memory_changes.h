#pragma once

#include <cstdint>

// Which pieces of the memory were written to, for those who show it. A mark is taken before the
// bytes are read, and set after they were written: what is written meanwhile is found next time.
// Main thread.

namespace toolkit {

/// A moment; later ones are greater.
using Moment = std::uint64_t;

/// Takes the marks of the pieces that hold `count` bytes from `address` on. All writes to them that
/// left their marks can now be read, and later ones will count as changes since this moment.
Moment TakeMarks(std::int64_t address, std::int64_t count);

/// Whether one of these bytes, their marks taken, may have been written to since `moment`; true for
/// all of them once the memory was given away for writing without marks.
[[nodiscard]] bool ChangedSince(Moment moment, std::int64_t address, std::int64_t count);

}  // namespace toolkit
