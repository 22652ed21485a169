#include "toolkit/font/font.h"

#include <algorithm>
#include <span>

#include "platform/platform.h"
#include "platform/search.h"
#include "toolkit/core/files.h"
#include "toolkit/core/output.h"
#include "toolkit/font/lzw.h"

const std::vector<std::uint8_t>& t_FontIdentifier =
    *new std::vector<std::uint8_t>{0x76, 0x78, 0x66, 0x6E};

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kFieldsEnd = 14;  // of the fields that a file must hold

std::int64_t BigEndian(const Bytes& file, std::size_t offset, std::size_t count) {
    if (file.size() < offset + count) return 0;
    std::int64_t value = 0;
    for (std::size_t i = 0; i < count; ++i) value = value << 8 | file[offset + i];
    return value;
}

Bytes Slice(const Bytes& file, std::size_t from, std::size_t to) {
    return {file.begin() + static_cast<std::ptrdiff_t>(from),
            file.begin() + static_cast<std::ptrdiff_t>(to)};
}

// A font without data and a line that says why.
t_Font Refused(std::string_view reason, std::int64_t headerSize, Bytes identifier) {
    toolkit::PrintLine("t_LoadFontResource: ", reason);
    t_Font font;
    font.HeaderSize = headerSize;
    font.Identifier = std::move(identifier);
    return font;
}

t_Font FontOfFile(const Bytes& file) {
    t_Font font;
    font.HeaderSize = file[0];
    font.Identifier = Slice(file, 1, 5);
    font.Format = file[5];
    font.Size = BigEndian(file, 6, 4);
    font.Start = file[10];
    font.End = file[11];
    font.Width = file[12];
    font.Height = file[13];
    font.Reserved = BigEndian(file, 14, 2);
    font.Data = Slice(file, file[0], file.size());
    return font;
}

// A compressed format and what it becomes.
struct FormatRow {
    std::int64_t Compressed;
    std::int64_t Plain;
};

constexpr FormatRow kFormats[] = {
    {100, 0},
    {102, 2},
};

}  // namespace

t_Font t_LoadFontResource(std::string_view name) {
    const Bytes file =
        getbinaryfromfile(toolkit::Joined(platform::Current().Resources->Directory(), "/", name));
    if (file.empty()) {
        return Refused(toolkit::Joined("Could not load file „", name, "“"), 16, t_FontIdentifier);
    }
    if (file.size() < std::max<std::size_t>(file[0], kFieldsEnd)) {
        return Refused("Invalid header size", file[0], t_FontIdentifier);
    }
    Bytes identifier = Slice(file, 1, 5);
    if (identifier != t_FontIdentifier) {
        return Refused("Invalid file type", file[0], std::move(identifier));
    }
    return t_FontDecompress(FontOfFile(file));
}

t_Font t_FontDecompress(const t_Font& font) {
    const auto* const row = platform::RowWith(kFormats, &FormatRow::Compressed, font.Format);
    if (row == nullptr) return font;
    t_Font plain = font;
    plain.Format = row->Plain;
    if (!font.Data.empty()) {
        const std::span<const std::uint8_t> data(font.Data);
        plain.Data = t_LZWDecompress(t_UnpackCodes(data.subspan(1), data.front()));
    }
    return plain;
}
