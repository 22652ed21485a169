#include "platform/text_store.h"

#include <utility>

namespace platform {

std::int64_t LineEndsIn(std::string_view text, bool afterReturn) {
    std::int64_t ends = 0;
    for (const char character : text) {
        // The line feed of a pair ends no line of its own.
        if (character == '\r' || (character == '\n' && !afterReturn)) ++ends;
        afterReturn = character == '\r';
    }
    return ends;
}

std::size_t EndOfFirstLine(std::string_view text) {
    const std::size_t end = text.find_first_of("\r\n");
    if (end == std::string_view::npos) return text.size();
    return text.substr(end, 2) == "\r\n" ? end + 2 : end + 1;
}

std::string_view TextStore::Text() const {
    return std::string_view(bytes_).substr(start_);
}

void TextStore::Set(std::string text) {
    bytes_ = std::move(text);
    start_ = 0;
    lastWasReturn_ = bytes_.ends_with('\r');
    SetLimit(limit_);
}

void TextStore::Append(std::string_view text) {
    // The line of this pair went when its carriage return ended it.
    if (lastWasReturn_ && Text().empty() && text.starts_with('\n')) {
        text.remove_prefix(1);
        lastWasReturn_ = false;
    }
    if (text.empty()) return;
    if (limit_ > 0) lineEnds_ += LineEndsIn(text, lastWasReturn_);
    lastWasReturn_ = text.ends_with('\r');
    bytes_.append(text);
    Trim();
}

void TextStore::SetLimit(std::int64_t lines) {
    limit_ = lines < 0 ? 0 : lines;
    if (limit_ > 0) lineEnds_ = LineEndsIn(Text(), false);
    Trim();
}

void TextStore::Trim() {
    if (limit_ == 0) return;
    while (lineEnds_ + 1 > limit_ && lineEnds_ > 0) {
        start_ += EndOfFirstLine(Text());
        --lineEnds_;
    }
    // Moving the rest down now and then keeps the cost of a line independent of the text's length.
    if (start_ > bytes_.size() / 2) {
        bytes_.erase(0, start_);
        start_ = 0;
    }
}

}  // namespace platform
