#include "tests/support/random_font.h"

#include <algorithm>

t_Font RandomFont(Random& random, std::int64_t width, std::int64_t height) {
    t_Font font;
    font.Format = 2;
    font.End = 255;
    font.Width = width;
    font.Height = height;
    const std::int64_t size = 256 * width * height;
    while (std::ssize(font.Data) < size) {
        const std::int64_t end = std::min(size, std::ssize(font.Data) + random.Between(1, 12));
        font.Data.resize(static_cast<std::size_t>(end),
                         static_cast<std::uint8_t>(random.OneOf({0, 255, random.Byte()})));
    }
    return font;
}
