#include "toolkit/text/finished_glyphs.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "toolkit/core/shared_bytes.h"
#include "toolkit/text/blend.h"

namespace toolkit {

namespace {

// The tables of one colour pair.
struct GlyphColors {
    const Blend& Blended;
    const std::array<std::uint8_t, 256>* Nearest;  // at 4 bits alone
};

constexpr std::size_t kGroup = 16;  // pixels; whole bytes at every depth
constexpr std::size_t kSlack = 8;   // bytes behind a group that may be written

template <int BitDepth>
constexpr std::size_t kGroupBytes = kGroup* BitDepth / 8;

// Writes the pixels of a group.
template <int BitDepth>
void PutGroup(const std::uint8_t* grey, std::uint8_t* to, const GlyphColors& colors);

template <>
void PutGroup<1>(const std::uint8_t* grey, std::uint8_t* to, const GlyphColors& colors) {
    unsigned bits = 0;
    for (std::size_t i = 0; i < kGroup; ++i) bits = bits << 1U | colors.Blended.Ink[grey[i]];
    to[0] = static_cast<std::uint8_t>(bits >> 8U);
    to[1] = static_cast<std::uint8_t>(bits);
}

template <>
void PutGroup<4>(const std::uint8_t* grey, std::uint8_t* to, const GlyphColors& colors) {
    const auto& nearest = *colors.Nearest;
    for (std::size_t i = 0; i < kGroup; i += 2) {
        *to++ = static_cast<std::uint8_t>(nearest[grey[i]] << 4U | nearest[grey[i + 1]]);
    }
}

template <>
void PutGroup<8>(const std::uint8_t* grey, std::uint8_t* to, const GlyphColors& colors) {
    for (std::size_t i = 0; i < kGroup; ++i) to[i] = colors.Blended.Grey[grey[i]];
}

template <>
void PutGroup<16>(const std::uint8_t* grey, std::uint8_t* to, const GlyphColors& colors) {
    for (std::size_t i = 0; i < kGroup; ++i) {
        to[2 * i] = 0;
        to[2 * i + 1] = colors.Blended.Grey[grey[i]];
    }
}

constexpr std::size_t kEight = 8;
constexpr bool kLowByteFirst = std::endian::native == std::endian::little;

// Eight pixels of three bytes, put together from the low byte up: for machines that put it first.
struct EightPixels {
    Word First;
    Word Second;
    Word Third;
};

EightPixels BlendEight(const std::uint8_t* grey, const Blend& blend) {
    const auto pixel = [&](std::size_t i) -> Word {
        return std::bit_cast<std::uint32_t>(blend.Mixed[grey[i]]);
    };
    const Word third = pixel(2);
    const Word sixth = pixel(5);
    return {pixel(0) | pixel(1) << 24U | third << 48U,
            third >> 16U | pixel(3) << 8U | pixel(4) << 32U | sixth << 56U,
            sixth >> 8U | pixel(6) << 16U | pixel(7) << 40U};
}

template <>
void PutGroup<24>(const std::uint8_t* grey, std::uint8_t* to, const GlyphColors& colors) {
    if constexpr (kLowByteFirst) {
        for (std::size_t i = 0; i < kGroup; i += kEight) {
            const EightPixels pixels = BlendEight(grey + i, colors.Blended);
            std::memcpy(to + 3 * i, &pixels, sizeof pixels);
        }
    } else {
        for (std::size_t i = 0; i < kGroup; ++i) {
            std::memcpy(to + 3 * i, colors.Blended.Mixed[grey[i]].data(), 3);
        }
    }
}

template <>
void PutGroup<32>(const std::uint8_t* grey, std::uint8_t* to, const GlyphColors& colors) {
    for (std::size_t i = 0; i < kGroup; ++i) {
        to[4 * i] = 0;
        std::memcpy(to + 4 * i + 1, colors.Blended.Mixed[grey[i]].data(), 3);
    }
}

// `to` is a multiple of 8.
void StoreEight(const EightPixels& pixels, std::uint8_t* to) {
    StoreWord(to, pixels.First);
    StoreWord(to + kWord, pixels.Second);
    StoreWord(to + 2 * kWord, pixels.Third);
}

bool HasNoInk(const std::uint8_t* grey) {
    std::uint64_t halves[2];
    std::memcpy(halves, grey, sizeof halves);
    return (halves[0] | halves[1]) == 0;
}

// Many rows of a glyph are bare: those are copied.
template <int BitDepth>
void PutGlyph(const GlyphColors& colors, std::span<const std::uint8_t> grey, std::uint8_t* to) {
    constexpr std::size_t kBytes = kGroupBytes<BitDepth>;
    std::array<std::uint8_t, kBytes + kSlack> bare;
    std::array<std::uint8_t, kGroup> greys{};
    PutGroup<BitDepth>(greys.data(), bare.data(), colors);

    std::size_t at = 0;
    for (; at + kGroup <= grey.size(); at += kGroup, to += kBytes) {
        if (HasNoInk(grey.data() + at)) {
            std::memcpy(to, bare.data(), kBytes);
        } else {
            PutGroup<BitDepth>(grey.data() + at, to, colors);
        }
    }
    if (at == grey.size()) return;
    std::copy(grey.begin() + static_cast<std::ptrdiff_t>(at), grey.end(), greys.begin());
    PutGroup<BitDepth>(greys.data(), bare.data(), colors);
    std::memcpy(to, bare.data(), (grey.size() - at) * BitDepth / 8);
}

}  // namespace

void FinishGlyph(const GlyphKey& key, std::span<const std::uint8_t> grey,
                 std::vector<std::uint8_t>& finished) {
    finished.resize(grey.size() * key.BitDepth / 8 + kSlack);
    const GlyphColors colors{BlendOf(key.Pair),
                             key.BitDepth == 4 ? &NearestColorsOf(key.Pair) : nullptr};
    switch (key.BitDepth) {
        case 1:
            PutGlyph<1>(colors, grey, finished.data());
            break;
        case 4:
            PutGlyph<4>(colors, grey, finished.data());
            break;
        case 8:
            PutGlyph<8>(colors, grey, finished.data());
            break;
        case 16:
            PutGlyph<16>(colors, grey, finished.data());
            break;
        case 24:
            PutGlyph<24>(colors, grey, finished.data());
            break;
        case 32:
            PutGlyph<32>(colors, grey, finished.data());
            break;
        default:
            break;
    }
}

bool PaintGlyph(const GlyphKey& key, std::span<const std::uint8_t> grey, const RowBlock& block) {
    constexpr std::int64_t kBytes = kGroupBytes<24>;
    if (!kLowByteFirst || key.BitDepth != 24 || !LiesWithin(block, 0, t_Memory.size()) ||
        (block.Address | block.Stride) % kWord != 0 || block.Bytes % kBytes != 0) {
        return false;
    }
    const Blend& blend = BlendOf(key.Pair);
    const std::array<std::uint8_t, kEight> none{};
    const EightPixels bare = BlendEight(none.data(), blend);
    const std::uint8_t* from = grey.data();
    std::uint8_t* row = WritableAt(block.Address);
    for (std::int64_t r = 0; r < block.Rows; ++r, row += block.Stride) {
        FetchNextCell(row, block.Bytes);
        for (std::int64_t b = 0; b < block.Bytes; b += kBytes, from += kGroup) {
            if (HasNoInk(from)) {
                StoreEight(bare, row + b);
                StoreEight(bare, row + b + kBytes / 2);
            } else {
                StoreEight(BlendEight(from, blend), row + b);
                StoreEight(BlendEight(from + kEight, blend), row + b + kBytes / 2);
            }
        }
    }
    MarkWritten(block);
    return true;
}

std::size_t GlyphStore::Bytes() const {
    std::size_t bytes = 0;
    for (const Slot& slot : slots_) bytes += slot.Bytes();
    return bytes;
}

const std::uint8_t* GlyphStore::Find(const GlyphKey& key, std::span<const std::uint8_t> grey) {
    // All codes of one colour pair have slots of their own.
    const std::size_t at = (key.Symbol + 256U * (key.Pair + 7U * key.BitDepth)) % kSlots;
    Label& label = labels_[at];
    Slot& slot = slots_[at];
    if (label.Kept == key && std::ranges::equal(slot.Grey, grey)) return slot.Finished.data();
    if (label.Wanted != key) {
        label.Wanted = key;
        return nullptr;
    }
    bytes_ -= slot.Bytes();
    label.Kept = key;
    slot.Grey.assign(grey.begin(), grey.end());
    FinishGlyph(key, grey, slot.Finished);
    bytes_ += slot.Bytes();
    if (bytes_ <= kMostBytes) return slot.Finished.data();
    // Too much: this glyph alone stays.
    Slot kept = std::move(slot);
    for (Slot& other : slots_) other = Slot();  // moved into, so that its memory goes
    slot = std::move(kept);
    bytes_ = slot.Bytes();
    return slot.Finished.data();
}

}  // namespace toolkit
