#include "tools/font_file.h"

#include <algorithm>
#include <cstddef>

#include "tools/lzw.h"

namespace tools {
namespace {

constexpr std::size_t kHeaderSize = 16;
constexpr std::size_t kCellBytes = Cell{}.size();
constexpr std::size_t kFontBytes = kCellCodes * kCellBytes;

constexpr std::uint8_t SizeByte(int shift) {
    return static_cast<std::uint8_t>(kFontBytes >> shift);
}

std::array<std::uint8_t, kHeaderSize> Header(FontFormat format) {
    // clang-format off
    return {
        kHeaderSize,
        'v', 'x', 'f', 'n',
        static_cast<std::uint8_t>(format),
        SizeByte(24), SizeByte(16), SizeByte(8), SizeByte(0),
        0, kCellCodes - 1,
        kCellWidth, kCellHeight,
        0, 0,
    };
    // clang-format on
}

}  // namespace

std::vector<std::uint8_t> FontBytes(const Font& font, FontFormat format) {
    std::vector<std::uint8_t> data;
    for (const Cell& cell : font) data.insert(data.end(), cell.begin(), cell.end());
    if (format == FontFormat::PackedGrey) data = LzwPack(data);
    std::vector<std::uint8_t> bytes(kHeaderSize + data.size());
    std::ranges::copy(Header(format), bytes.begin());
    std::ranges::copy(data, bytes.begin() + kHeaderSize);
    return bytes;
}

std::optional<Font> FontFromBytes(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < kHeaderSize) return std::nullopt;
    const auto format = static_cast<FontFormat>(bytes[5]);
    if (format != FontFormat::Grey && format != FontFormat::PackedGrey) return std::nullopt;
    if (!std::ranges::equal(bytes.first(kHeaderSize), Header(format))) return std::nullopt;

    std::span<const std::uint8_t> data = bytes.subspan(kHeaderSize);
    std::optional<std::vector<std::uint8_t>> unpacked;
    if (format == FontFormat::PackedGrey) {
        unpacked = LzwUnpack(data, kFontBytes);
        if (!unpacked) return std::nullopt;
        data = *unpacked;
    }
    if (data.size() != kFontBytes) return std::nullopt;

    Font font{};
    for (Cell& cell : font) {
        std::ranges::copy(data.first(kCellBytes), cell.begin());
        data = data.subspan(kCellBytes);
    }
    return font;
}

}  // namespace tools
