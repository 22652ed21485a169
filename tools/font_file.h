#pragma once

// Font files, big-endian:
//
//   0   header size, 16      10  first code      14  reserved, 2 bytes of 0
//   1   "vxfn"               11  last code       16  data
//   5   format               12  cell width
//   6   size, 4 bytes        13  cell height
//
// The size counts the bytes of the glyph data in its unpacked form: one byte per pixel, cell after
// cell from code 0 on.

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/glyph_cell.h"

namespace tools {

enum class FontFormat : std::uint8_t { Grey = 2, PackedGrey = 102 };

/// The cells of the codes 0 to 255.
using Font = std::array<Cell, kCellCodes>;

/// The bytes of a font file.
[[nodiscard]] std::vector<std::uint8_t> FontBytes(const Font& font, FontFormat format);

/// The font in the file `name` of `folder`, as the toolkit loads it; no value, after a fault line on
/// standard error, unless it is whole and its cells have the size of `Cell`.
[[nodiscard]] std::optional<Font> LoadFont(const std::string& folder, const std::string& name);

}  // namespace tools
