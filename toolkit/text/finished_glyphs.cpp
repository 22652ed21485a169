#include "toolkit/text/finished_glyphs.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <cstring>
#include <utility>

#include "toolkit/core/bit_depths.h"
#include "toolkit/core/shared_bytes.h"
#include "toolkit/text/blend.h"
#include "toolkit/window/window.h"

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
void BlendGlyph(const GlyphColors& colors, std::span<const std::uint8_t> grey, std::uint8_t* to) {
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

constexpr std::int64_t kLargestKept = 16'384;          // pixels of a glyph that is kept
constexpr std::size_t kLongestRow = 4 * kLargestSide;  // bytes of a picture

// At 16 and 32 bits the first byte of a pixel keeps what it holds.
void PutRows(const RowBlock& block, std::int64_t depth, const std::uint8_t* finished,
             RowSource holds) {
    if (KeepsFirstByte(depth)) {
        MergeRows(block, finished, depth / 8, holds);
    } else {
        WriteRows(block, finished, holds);
    }
}

// What is kept for all threads. It serves one of them at a time; who finds it busy does without.
struct CommonStore {
    GlyphStore Glyphs;
    std::atomic_flag Busy;
};

CommonStore& Common() {
    static CommonStore& store = *new CommonStore;
    return store;
}

// Has `use` work with the finished glyph if it is kept; whether it was.
template <typename Use>
bool WithKept(const GlyphKey& key, std::span<const std::uint8_t> grey, const Use& use) {
    CommonStore& store = Common();
    if (std::ssize(grey) > kLargestKept || store.Busy.test_and_set(std::memory_order_acquire)) {
        return false;
    }
    const std::uint8_t* const kept = store.Glyphs.Find(key, grey);
    if (kept != nullptr) use(kept);
    store.Busy.clear(std::memory_order_release);
    return kept != nullptr;
}

template <typename Use>
void WithNewlyFinished(const GlyphKey& key, std::span<const std::uint8_t> grey, const Use& use) {
    thread_local std::vector<std::uint8_t> room;
    std::vector<std::uint8_t> roomOnce;
    std::vector<std::uint8_t>& finished = std::ssize(grey) <= kLargestKept ? room : roomOnce;
    FinishGlyph(key, grey, finished);
    use(finished.data());
}

// Writes a glyph with rows of `length` bytes as often as it fits into the block. Where all rows
// that are left are alike, as in a blank, they are put together and written at once.
void PutSideBySide(const RowBlock& block, std::int64_t length, std::int64_t depth,
                   const std::uint8_t* finished) {
    std::array<std::uint8_t, kLongestRow> pixels;  // written before it is read
    const std::uint8_t* const last = finished + (block.Rows - 1) * length;
    std::int64_t rows = 0;
    for (std::int64_t r = 0; r < block.Rows; r += rows) {
        const std::uint8_t* const row = finished + r * length;
        rows = std::equal(row, last, row + length) ? block.Rows - r : 1;
        std::copy_n(row, length, pixels.data());
        for (std::int64_t have = length; have < block.Bytes; have *= 2) {
            std::copy_n(pixels.data(), std::min(have, block.Bytes - have), pixels.data() + have);
        }
        PutRows({block.Address + r * block.Stride, block.Stride, block.Bytes, rows}, depth,
                pixels.data(), RowSource::OneRow);
    }
}

}  // namespace

void FinishGlyph(const GlyphKey& key, std::span<const std::uint8_t> grey,
                 std::vector<std::uint8_t>& finished) {
    finished.resize(grey.size() * key.BitDepth / 8 + kSlack);
    const GlyphColors colors{BlendOf(key.Pair),
                             key.BitDepth == 4 ? &NearestColorsOf(key.Pair) : nullptr};
    WithBitDepth(key.BitDepth,
                 [&](auto depth) { BlendGlyph<depth()>(colors, grey, finished.data()); });
}

bool PaintGlyph(const GlyphKey& key, std::span<const std::uint8_t> grey, const RowBlock& block) {
    constexpr std::int64_t kBytes = kGroupBytes<24>;
    if (!kLowByteFirst || key.BitDepth != 24 || !InMemory(block) ||
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
    if (label.Kept == key &&
        std::equal(slot.Grey.begin(), slot.Grey.end(), grey.begin(), grey.end()))
        return slot.Finished.data();
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

void PutGlyph(const RowBlock& block, const GlyphKey& key, std::span<const std::uint8_t> grey,
              bool isRepeated) {
    const auto put = [&](const std::uint8_t* finished) {
        if (isRepeated && !KeepsFirstByte(key.BitDepth) && HoldsRows(block, finished)) return;
        PutRows(block, key.BitDepth, finished, RowSource::AllRows);
    };
    if (WithKept(key, grey, put) || PaintGlyph(key, grey, block)) return;
    WithNewlyFinished(key, grey, put);
}

void PutGlyphInsideBytes(const RowBlock& block, const GlyphKey& key,
                         std::span<const std::uint8_t> grey, std::int64_t firstBit) {
    const unsigned perByte = 8U / key.BitDepth;
    const unsigned pixelMask = (1U << key.BitDepth) - 1;
    const auto& values = key.BitDepth == 1 ? BlendOf(key.Pair).Ink : NearestColorsOf(key.Pair);
    const std::size_t width = grey.size() / static_cast<std::size_t>(block.Rows);
    for (std::int64_t r = 0; r < block.Rows; ++r) {
        const auto row = grey.subspan(static_cast<std::size_t>(r) * width, width);
        for (std::size_t j = 0; j < width; ++j) {
            const std::size_t x = static_cast<std::size_t>(firstBit) / key.BitDepth + j;
            const std::int64_t address =
                block.Address + r * block.Stride + static_cast<std::int64_t>(x / perByte);
            const auto shift = static_cast<unsigned>(perByte - 1 - x % perByte) * key.BitDepth;
            const unsigned others = Peek(address) & ~(pixelMask << shift);
            Poke(address, static_cast<std::uint8_t>(others | static_cast<unsigned>(values[row[j]])
                                                                 << shift));
        }
    }
}

void PutGlyphSideBySide(const RowBlock& block, std::int64_t length, const GlyphKey& key,
                        std::span<const std::uint8_t> grey) {
    const auto put = [&](const std::uint8_t* finished) {
        PutSideBySide(block, length, key.BitDepth, finished);
    };
    if (!WithKept(key, grey, put)) WithNewlyFinished(key, grey, put);
}

}  // namespace toolkit
