#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Bitmap fonts: a fixed cell per character and one grey value per pixel, read from font files in
// the resource directory.
//
// A font file; whole numbers are big-endian:
//    0  1  header size: number of bytes before the glyph data
//    1  4  identifier "vxfn"
//    5  1  format: 0 uncompressed, 2 uncompressed grey, 100 and 102 the same in LZW-compressed form
//    6  4  size
//   10  1  first character code       11  1  last character code
//   12  1  glyph width in pixels      13  1  glyph height in pixels
//   14  2  reserved
//
// Grey data: one byte per pixel, 0 background to 255 ink. The glyph of code k begins at byte
// k * Width * Height, also when the first code is not 0, and runs row by row from the top, each row
// from the left.
//
// The characters of the fonts that come with the system, and those that the toolkit relies on (*)
//   * 0 - 14      quarter blocks: ink in the quarters whose bit is not set in the code, 8 upper
//                 left, 4 upper right, 2 lower left, 1 lower right; 3 is so the upper half that
//                 block graphics are made of
//     15          empty
//     16 - 18     three shades, from light to dark
//     19 - 24     the lower 1, 2, 3, 5, 6 and 7 eighths
//     25, 26      rising and falling diagonal
//     27, 28      triangle in the lower left and in the lower right
//     29, 30, 31  arrow up, arrow down, heart
//   * 32          blank
//     33 - 126    ASCII
//     127 - 133   checkers, star, lattice, arrow left, double line, arrow right, disc
//     134 - 137   round corners: upper left, upper right, lower left, lower right
//     138 - 141   vertical line, heavy vertical line, horizontal line, heavy horizontal line
//     142 - 145   corners in the order of the round ones
//     146 - 150   tees to the right, to the left, down and up, cross
//     151 - 153   double corners: upper left, upper right, lower left
//     154, 155    dash, dots
//   * 156         the rule of t_TextLine
//     157, 158    double vertical line, double corner at the lower right
//     159, 160    stripes, open box
//     161 - 255   Latin-1, but 164 is the euro

/// A loaded font. Empty `Data` counts as no font.
struct t_Font {
    std::int64_t HeaderSize = 16;
    std::vector<std::uint8_t> Identifier = {0x76, 0x78, 0x66, 0x6E};  // t_FontIdentifier
    std::int64_t Format = 0;
    std::int64_t Size = 0;   // carried along, not used
    std::uint8_t Start = 0;  // first code that the font draws
    std::uint8_t End = 0;    // last code that the font draws
    std::int64_t Width = 0;  // of a cell, pixels
    std::int64_t Height = 0;
    std::int64_t Reserved = 0;       // carried along, not used
    std::vector<std::uint8_t> Data;  // after loading never compressed

    bool operator==(const t_Font&) const = default;
};

/// The four bytes "vxfn".
extern const std::vector<std::uint8_t>& t_FontIdentifier;

/// Loads the font file `name` of the resource directory. Any thread; reads the file at once.
/// Returns a font with empty `Data` after one of the lines
///   "t_LoadFontResource: Could not load file „<name>“"   missing, unreadable or empty
///   "t_LoadFontResource: Invalid header size"            shorter than its header, or than the 14
///                                                        bytes that every header holds
///   "t_LoadFontResource: Invalid file type"              not a font file
/// and, without a line, when a compressed font holds no valid data.
[[nodiscard]] t_Font t_LoadFontResource(std::string_view name);

/// The font with its data uncompressed: format 102 becomes 2 and format 100 becomes 0. Data that is
/// no valid stream, or that would unpack to more than 64 MiB, becomes empty. Any thread.
[[nodiscard]] t_Font t_FontDecompress(const t_Font& font);
