#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// What a window shows of a text that is too long to be shown without a pause. Any thread.

namespace platform::parts {

/// As much as an editor takes in within a twentieth of a second.
inline constexpr std::size_t kMostBytesShown = 1U << 20U;
inline constexpr std::int64_t kMostLinesShown = 10'000;

/// The first part of the text, at most so many bytes and lines; all of it when it is no longer.
/// Ends with a whole character.
[[nodiscard]] std::string_view Beginning(std::string_view text);

/// The last part of the text, in the same way.
[[nodiscard]] std::string_view Ending(std::string_view text);

}  // namespace platform::parts
