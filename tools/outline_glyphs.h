#pragma once

// Text glyphs: an outline font, rendered into the cells of the font by FreeType.

#include <memory>
#include <optional>
#include <string>

#include "tools/glyph_cell.h"

namespace tools {

class OutlineFont {
  public:
    /// Opens the font file and sets the size at which a character is 16 pixels wide. After one
    /// fault line on standard error the result is no value.
    [[nodiscard]] static std::optional<OutlineFont> Open(const std::string& path);

    OutlineFont(OutlineFont&&) noexcept;
    ~OutlineFont();

    /// The glyph of a Unicode character, its base line below row 24. A glyph that would leave the
    /// cell is moved by the least that is needed, and one line on standard output tells of it; if
    /// that does not help, or the font has no such character: one fault line and no value.
    [[nodiscard]] std::optional<Cell> Glyph(char32_t character) const;

  private:
    struct Handles;
    explicit OutlineFont(std::unique_ptr<Handles> handles);

    std::unique_ptr<Handles> handles_;
};

}  // namespace tools
