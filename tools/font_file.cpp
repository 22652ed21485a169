#include "tools/font_file.h"

#include <algorithm>
#include <cstddef>
#include <iostream>

#include "platform/headless/headless.h"
#include "toolkit/font/font.h"
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
    const auto header = Header(format);
    std::vector<std::uint8_t> bytes(header.size() + data.size());
    std::copy(data.begin(), data.end(), std::copy(header.begin(), header.end(), bytes.begin()));
    return bytes;
}

std::optional<Font> LoadFont(const std::string& folder, const std::string& name) {
    platform::headless::Headless desktop;
    desktop.ResourceFolder = folder;
    const t_Font loaded = t_LoadFontResource(name);
    if (loaded.Width != kCellWidth || loaded.Height != kCellHeight ||
        loaded.Data.size() != kFontBytes) {
        std::cerr << folder << '/' << name << " is no font of 16 x 32 pixels.\n";
        return std::nullopt;
    }
    Font font{};
    const std::uint8_t* data = loaded.Data.data();
    for (Cell& cell : font) {
        std::copy_n(data, kCellBytes, cell.begin());
        data += kCellBytes;
    }
    return font;
}

}  // namespace tools
