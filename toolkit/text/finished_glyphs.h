#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "toolkit/core/memory.h"

// Glyphs as the bytes that they are in a picture: blended into a pair of colours at a bit depth,
// kept for the next time, and put into the memory. Any thread. A glyph is given as grey values, one
// byte a pixel, rows one after the other; but for PutGlyphInsideBytes its rows are whole bytes in
// the picture.

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
    // The keys of a slot. They lie in a small array of their own: a glyph that is asked for once
    // changes its label and never touches its slot.
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

// Putting glyphs into the memory. The block that each of these takes lies in the memory.

/// Writes a glyph into the block, which has its size. `isRepeated` tells that it is likely there
/// already: then it is not written again, so that it does not count as changed.
void PutGlyph(const RowBlock& block, const GlyphKey& key, std::span<const std::uint8_t> grey,
              bool isRepeated);

/// The same for a glyph at 1 or 4 bits whose rows begin at bit `firstBit` (0 to 7, from the highest)
/// of the block's rows or end inside a byte. The other pixels of a byte keep their colours.
void PutGlyphInsideBytes(const RowBlock& block, const GlyphKey& key,
                         std::span<const std::uint8_t> grey, std::int64_t firstBit);

/// Writes a glyph with rows of `length` bytes as often side by side as it fits into the block.
void PutGlyphSideBySide(const RowBlock& block, std::int64_t length, const GlyphKey& key,
                        std::span<const std::uint8_t> grey);

}  // namespace toolkit
