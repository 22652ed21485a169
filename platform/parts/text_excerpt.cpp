#include "platform/parts/text_excerpt.h"

#include "platform/text_store.h"

namespace platform::parts {

namespace {

bool ContinuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

}  // namespace

std::string_view Beginning(std::string_view text) {
    std::size_t size = text.size();
    if (size > kMostBytesShown) {
        size = kMostBytesShown;
        while (size > 0 && ContinuesCharacter(text[size])) --size;
    }
    std::size_t end = 0;
    std::int64_t lines = 0;
    while (end < size && lines < kMostLinesShown) {
        end += EndOfFirstLine(text.substr(end, size - end));
        ++lines;
    }
    return text.substr(0, end);
}

std::string_view Ending(std::string_view text) {
    if (text.size() > kMostBytesShown) {
        text.remove_prefix(text.size() - kMostBytesShown);
        while (!text.empty() && ContinuesCharacter(text.front())) text.remove_prefix(1);
    }
    std::int64_t ends = LineEndsIn(text, false);
    for (; ends >= kMostLinesShown; --ends) text.remove_prefix(EndOfFirstLine(text));
    return text;
}

}  // namespace platform::parts
