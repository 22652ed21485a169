#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace platform {

/// The text of a text view, byte for byte as it was given, with a limit on its lines. A line ends
/// with a line feed, a carriage return, or a carriage return and a line feed. No threads of its
/// own.
class TextStore {
  public:
    /// The whole text. Valid until the next change.
    [[nodiscard]] std::string_view Text() const;
    void Set(std::string text);
    /// Adds at the end. When more than the limit is held, the oldest lines go; the last line counts
    /// as one also while it is empty.
    void Append(std::string_view text);
    /// 0: no limit.
    void SetLimit(std::int64_t lines);
    [[nodiscard]] std::int64_t Limit() const { return limit_; }

  private:
    void Trim();

    std::string bytes_;
    std::size_t start_ = 0;      // the text begins here; what is before is dropped in one go
    std::int64_t lineEnds_ = 0;  // in the text; counted while there is a limit
    std::int64_t limit_ = 0;
    bool lastWasReturn_ = false;  // the text ends with a carriage return
};

/// How many lines end in `text`; `afterReturn` tells whether a carriage return stands before it.
[[nodiscard]] std::int64_t LineEndsIn(std::string_view text, bool afterReturn);

/// Where the first line of `text` ends: the offset behind its line end, or the size of the text.
[[nodiscard]] std::size_t EndOfFirstLine(std::string_view text);

}  // namespace platform
