#include "tools/outline_glyphs.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_BBOX_H
#include FT_OUTLINE_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <span>
#include <utility>
#include <vector>

#include "platform/search.h"

namespace tools {
namespace {

// FreeType measures in 64ths of a pixel, upwards from the base line.
constexpr FT_Pos kUnit = 64;

// Size of the em. The characters advance by 1233 of 2048 parts of an em: 16 pixels at 26.58.
constexpr FT_F26Dot6 kEmSize = 1701;

// The base line lies between the rows 24 and 25: seven rows below it take the longest descender,
// 25 rows above it a capital with its accent.
constexpr FT_Pos kRowsBelowBaseLine = 7;
constexpr FT_Pos kCellTop = (kCellHeight - kRowsBelowBaseLine) * kUnit;
constexpr FT_Pos kCellBottom = -kRowsBelowBaseLine * kUnit;
constexpr FT_Pos kCellRight = kCellWidth * kUnit;

// Heights of small and capital letters, which hinting makes whole pixels. Accents lie above them.
constexpr FT_Pos kSmallHeight = 15 * kUnit;
constexpr FT_Pos kCapitalHeight = 20 * kUnit;

// Hinting presses the tildes of these letters into bars.
constexpr char32_t kFlattened[] = {U'ã', U'ñ', U'õ'};

using Points = std::span<FT_Vector>;

FT_BBox BoundsOf(FT_Outline& outline) {
    FT_BBox bounds{};
    FT_Outline_Get_BBox(&outline, &bounds);
    return bounds;
}

std::string Name(char32_t character) {
    return "Character " + std::to_string(static_cast<std::uint32_t>(character));
}

void Report(char32_t character, const char* what, FT_Pos units) {
    std::cout << "  " << Name(character) << ": " << what << ' '
              << static_cast<double>(units) / kUnit << " pixels\n";
}

std::vector<Points> Contours(FT_Outline& outline) {
    std::vector<Points> contours;
    int first = 0;
    for (int contour = 0; contour < outline.n_contours; ++contour) {
        const int end = outline.contours[contour] + 1;
        contours.emplace_back(outline.points + first, outline.points + end);
        first = end;
    }
    return contours;
}

FT_Pos Lowest(Points points) {
    const auto lower = [](const FT_Vector& a, const FT_Vector& b) { return a.y < b.y; };
    return std::min_element(points.begin(), points.end(), lower)->y;
}

// Gives the accent of a flattened letter the shape it has in `plain`, the outline without hinting.
void RestoreTilde(FT_Outline& outline, std::span<const FT_Vector> plain) {
    std::size_t first = 0;
    for (const Points points : Contours(outline)) {
        if (Lowest(points) >= kSmallHeight) {
            std::copy_n(plain.begin() + static_cast<std::ptrdiff_t>(first), points.size(),
                        points.begin());
        }
        first += points.size();
    }
}

// Lowers the parts that lie wholly above a capital letter.
void LowerAccent(FT_Outline& outline, FT_Pos down) {
    for (const Points points : Contours(outline)) {
        if (Lowest(points) < kCapitalHeight) continue;
        for (FT_Vector& point : points) point.y -= down;
    }
}

// Moves what little reaches over the edges of the cell back inside.
void FitIntoCell(FT_Outline& outline, char32_t character) {
    const FT_BBox bounds = BoundsOf(outline);
    if (bounds.yMax > kCellTop) {
        LowerAccent(outline, bounds.yMax - kCellTop);
        Report(character, "accent lowered by", bounds.yMax - kCellTop);
    }
    FT_Pos right = 0;
    if (bounds.xMin < 0) right = -bounds.xMin;
    if (bounds.xMax > kCellRight) right = kCellRight - bounds.xMax;
    if (right != 0) {
        FT_Outline_Translate(&outline, right, 0);
        Report(character, right < 0 ? "moved left by" : "moved right by", std::abs(right));
    }
}

bool LiesInCell(const FT_BBox& bounds) {
    return bounds.xMin >= 0 && bounds.xMax <= kCellRight && bounds.yMin >= kCellBottom &&
           bounds.yMax <= kCellTop;
}

std::optional<Cell> Render(FT_Library library, FT_Outline& outline) {
    FT_Outline_Translate(&outline, 0, kRowsBelowBaseLine * kUnit);
    Cell cell{};
    FT_Bitmap bitmap{};
    bitmap.rows = kCellHeight;
    bitmap.width = kCellWidth;
    bitmap.pitch = kCellWidth;
    bitmap.buffer = cell.data();
    bitmap.num_grays = 256;
    bitmap.pixel_mode = FT_PIXEL_MODE_GRAY;
    if (FT_Outline_Get_Bitmap(library, &outline, &bitmap) != 0) return std::nullopt;
    return cell;
}

}  // namespace

struct OutlineFont::Handles {
    FT_Library Library = nullptr;
    FT_Face Face = nullptr;

    Handles() = default;
    Handles(const Handles&) = delete;
    Handles& operator=(const Handles&) = delete;
    ~Handles() {
        if (Face != nullptr) FT_Done_Face(Face);
        if (Library != nullptr) FT_Done_FreeType(Library);
    }
};

OutlineFont::OutlineFont(std::unique_ptr<Handles> handles) : handles_(std::move(handles)) {}
OutlineFont::OutlineFont(OutlineFont&&) noexcept = default;
OutlineFont::~OutlineFont() = default;

std::optional<OutlineFont> OutlineFont::Open(const std::string& path) {
    auto handles = std::make_unique<Handles>();
    if (FT_Init_FreeType(&handles->Library) != 0 ||
        FT_New_Face(handles->Library, path.c_str(), 0, &handles->Face) != 0 ||
        FT_Set_Char_Size(handles->Face, 0, kEmSize, 72, 72) != 0) {
        std::cerr << "Cannot open the outline font " << path << ".\n";
        return std::nullopt;
    }
    return OutlineFont(std::move(handles));
}

// Light hinting puts horizontal strokes on whole pixels and leaves widths as they are: crisp feet
// and bars, and stems of even weight.
std::optional<Cell> OutlineFont::Glyph(char32_t character) const {
    FT_FaceRec* const face = handles_->Face;
    const FT_UInt index = FT_Get_Char_Index(face, character);
    FT_Outline& outline = face->glyph->outline;
    if (index == 0 || FT_Load_Glyph(face, index, FT_LOAD_NO_HINTING) != 0) {
        std::cerr << Name(character) << " is not in the outline font.\n";
        return std::nullopt;
    }
    const std::vector<FT_Vector> plain(outline.points, outline.points + outline.n_points);
    if (FT_Load_Glyph(face, index, FT_LOAD_TARGET_LIGHT) != 0) {
        std::cerr << Name(character) << " cannot be hinted.\n";
        return std::nullopt;
    }
    if (platform::Contains(kFlattened, character)) {
        RestoreTilde(outline, plain);
    }
    FitIntoCell(outline, character);
    if (!LiesInCell(BoundsOf(outline))) {
        std::cerr << Name(character) << " does not fit into its cell.\n";
        return std::nullopt;
    }
    return Render(handles_->Library, outline);
}

}  // namespace tools
