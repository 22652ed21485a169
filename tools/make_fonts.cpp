// Makes the two font files of the program from the outline fonts DejaVu Sans Mono and its bold cut.
//
//   make_fonts <folder of the outline fonts> <folder to write into> [--format 2]
//
// Files are in the packed format 102 unless format 2, the same data unpacked, is asked for.

#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/file_bytes.h"
#include "tools/font_file.h"
#include "tools/graphic_glyphs.h"
#include "tools/outline_glyphs.h"

using tools::Font;
using tools::FontFormat;

namespace {

struct FontRow {
    const char* OutlineFile;
    const char* FontFile;
    tools::Strokes Strokes;
};

constexpr FontRow kFonts[] = {
    {"DejaVuSansMono.ttf", "MenloRegular 16x32.font", {2, 4, 6, 2}},
    {"DejaVuSansMono-Bold.ttf", "MenloBold 16x32.font", {4, 8, 10, 4}},
};

// The character of a text code: its Latin-1 character, but the euro sign where Latin-1 has the
// general currency sign.
char32_t CharacterOf(int code) {
    constexpr int kEuroCode = 164;
    return code == kEuroCode ? U'€' : static_cast<char32_t>(code);
}

std::optional<Font> MakeFont(const tools::OutlineFont& outlines, const tools::Strokes& strokes) {
    Font font{};
    for (int code = 0; code < tools::kCellCodes; ++code) {
        const std::optional<tools::Cell> cell = tools::IsGraphic(code)
                                                    ? tools::GraphicGlyph(code, strokes)
                                                    : outlines.Glyph(CharacterOf(code));
        if (!cell) return std::nullopt;
        font[static_cast<std::size_t>(code)] = *cell;
    }
    return font;
}

bool MakeFontFile(const FontRow& row, const std::string& outlineFolder,
                  const std::string& targetFolder, FontFormat format) {
    const auto outlines = tools::OutlineFont::Open(outlineFolder + '/' + row.OutlineFile);
    if (!outlines) return false;
    std::cout << row.FontFile << '\n';
    const std::optional<Font> font = MakeFont(*outlines, row.Strokes);
    if (!font) return false;

    const std::vector<std::uint8_t> bytes = tools::FontBytes(*font, format);
    if (!tools::WriteFile(targetFolder + '/' + row.FontFile, bytes)) return false;
    if (tools::LoadFont(targetFolder, row.FontFile) != font) {
        std::cerr << row.FontFile << " does not read back as the font it was made from.\n";
        return false;
    }
    std::cout << "  " << bytes.size() << " bytes\n";
    return true;
}

}  // namespace

int main(int count, char** words) {
    const std::vector<std::string> arguments(words + 1, words + count);
    const bool asksForFormat = arguments.size() == 4 && arguments[2] == "--format" &&
                               (arguments[3] == "2" || arguments[3] == "102");
    if (arguments.size() != 2 && !asksForFormat) {
        std::cerr << "make_fonts <folder of the outline fonts> <folder to write into> "
                     "[--format 2|102]\n";
        return EXIT_FAILURE;
    }
    const bool unpacked = asksForFormat && arguments[3] == "2";
    const FontFormat format = unpacked ? FontFormat::Grey : FontFormat::PackedGrey;
    for (const FontRow& row : kFonts) {
        if (!MakeFontFile(row, arguments[0], arguments[1], format)) return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
