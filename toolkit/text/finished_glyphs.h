#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "toolkit/core/memory.h"

// Glyphs as the bytes that they are in a picture: blended into a pair of colours at a bit depth,
// rows one after the other. Only for glyphs whose rows are whole bytes. Any thread.

namespace toolkit {

struct GlyphKey {
    std::uint8_t Symbol;
    std::uint8_t Pair;      // foreground in the high four bits, background in the low four
    std::uint8_t BitDepth;  // 1, 4, 8, 16, 24 or 32

    bool operator==(const GlyphKey&) const = default;
};

/// Blends the grey values of a glyph. Bytes that drawing leaves as they are (the first of each
/// pixel at 16 and 32 bits) are 0. `finished` is made to hold the bytes, and some more.
void FinishGlyph(const GlyphKey& key, std::span<const std::uint8_t> grey,
                 std::vector<std::uint8_t>& finished);

/// Blends the grey values of a glyph straight into the memory, whose block has the glyph's size. At
/// 24 bits, where pixels and places come out in whole words; otherwise false, and nothing is done.
bool PaintGlyph(const GlyphKey& key, std::span<const std::uint8_t> grey, const RowBlock& block);

/// A few thousand finished glyphs, kept from the second time on that one is asked for, so that one
/// that is drawn once drives none away. What is kept is found by key and by the grey values
/// themselves, so that any change of a font is seen; all of it together takes at most kMostBytes.
class GlyphStore {
  public:
    static constexpr std::size_t kMostBytes = std::size_t{4} << 20U;

    /// The finished glyph, or nullptr for one that is not kept. Valid until the next call.
    const std::uint8_t* Find(const GlyphKey& key, std::span<const std::uint8_t> grey);

    /// Bytes kept now, as counted slot by slot.
    [[nodiscard]] std::size_t Bytes() const;

  private:
    // Kept together, apart from what they name: most of those that are drawn once need no more.
    struct Label {
        GlyphKey Kept{};
        GlyphKey Wanted{};  // asked for last: kept if it is asked for once more
    };
    struct Slot {
        std::vector<std::uint8_t> Grey;
        std::vector<std::uint8_t> Finished;

        [[nodiscard]] std::size_t Bytes() const { return Grey.capacity() + Finished.capacity(); }
    };

    static constexpr std::size_t kSlots = 2048;

    std::vector<Slot> slots_ = std::vector<Slot>(kSlots);
    std::vector<Label> labels_ = std::vector<Label>(kSlots);
    std::size_t bytes_ = 0;
};

}  // namespace toolkit
