#include "toolkit/text/finished_glyphs.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "toolkit/text/blend.h"

namespace toolkit {

namespace {

constexpr std::size_t kGroup = 8;  // pixels; whole bytes at every depth
constexpr std::uint64_t kNoInk = 0;
constexpr std::uint64_t kFullInk = ~std::uint64_t{0};
constexpr std::size_t kSlack = 8;

// Writes the pixels of a group, as many bytes as the depth has bits; 24 bits write one more.
template <int BitDepth>
void PutGroup(const std::uint8_t* grey, std::uint8_t* to, const GlyphKey& key);

template <>
void PutGroup<1>(const std::uint8_t* grey, std::uint8_t* to, const GlyphKey& key) {
    const auto& ink = BlendOf(key.Pair).Ink;
    unsigned bits = 0;
    for (std::size_t i = 0; i < kGroup; ++i) bits = bits << 1U | ink[grey[i]];
    *to = static_cast<std::uint8_t>(bits);
}

template <>
void PutGroup<4>(const std::uint8_t* grey, std::uint8_t* to, const GlyphKey& key) {
    const auto& nearest = NearestColorsOf(key.Pair);
    for (std::size_t i = 0; i < kGroup; i += 2) {
        *to++ = static_cast<std::uint8_t>(nearest[grey[i]] << 4U | nearest[grey[i + 1]]);
    }
}

template <>
void PutGroup<8>(const std::uint8_t* grey, std::uint8_t* to, const GlyphKey& key) {
    const auto& level = BlendOf(key.Pair).Grey;
    for (std::size_t i = 0; i < kGroup; ++i) to[i] = level[grey[i]];
}

template <>
void PutGroup<16>(const std::uint8_t* grey, std::uint8_t* to, const GlyphKey& key) {
    const auto& level = BlendOf(key.Pair).Grey;
    for (std::size_t i = 0; i < kGroup; ++i) to[2 * i + 1] = level[grey[i]];
}

template <>
void PutGroup<24>(const std::uint8_t* grey, std::uint8_t* to, const GlyphKey& key) {
    const auto& mixed = BlendOf(key.Pair).Mixed;
    for (std::size_t i = 0; i < kGroup; ++i) std::memcpy(to + 3 * i, mixed[grey[i]].data(), 4);
}

template <>
void PutGroup<32>(const std::uint8_t* grey, std::uint8_t* to, const GlyphKey& key) {
    const auto& mixed = BlendOf(key.Pair).Mixed;
    for (std::size_t i = 0; i < kGroup; ++i) std::memcpy(to + 4 * i + 1, mixed[grey[i]].data(), 3);
}

// Most groups of a glyph are all background or all ink: those are copied.
template <int BitDepth>
void PutGlyph(const GlyphKey& key, std::span<const std::uint8_t> grey, std::uint8_t* to) {
    std::array<std::uint8_t, 32 + kSlack> background{};
    std::array<std::uint8_t, 32 + kSlack> foreground{};
    std::array<std::uint8_t, kGroup> greys{};
    PutGroup<BitDepth>(greys.data(), background.data(), key);
    greys.fill(255);
    PutGroup<BitDepth>(greys.data(), foreground.data(), key);

    std::size_t at = 0;
    for (; at + kGroup <= grey.size(); at += kGroup, to += BitDepth) {
        std::uint64_t group = 0;
        std::memcpy(&group, grey.data() + at, kGroup);
        if (group == kNoInk) {
            std::memcpy(to, background.data(), BitDepth);
        } else if (group == kFullInk) {
            std::memcpy(to, foreground.data(), BitDepth);
        } else {
            PutGroup<BitDepth>(grey.data() + at, to, key);
        }
    }
    if (at == grey.size()) return;
    std::array<std::uint8_t, 32 + kSlack> last{};
    greys.fill(0);
    std::copy(grey.begin() + static_cast<std::ptrdiff_t>(at), grey.end(), greys.begin());
    PutGroup<BitDepth>(greys.data(), last.data(), key);
    std::memcpy(to, last.data(), (grey.size() - at) * BitDepth / 8);
}

}  // namespace

void FinishGlyph(const GlyphKey& key, std::span<const std::uint8_t> grey,
                 std::vector<std::uint8_t>& finished) {
    finished.assign(grey.size() * key.BitDepth / 8 + kSlack, 0);
    switch (key.BitDepth) {
        case 1:
            PutGlyph<1>(key, grey, finished.data());
            break;
        case 4:
            PutGlyph<4>(key, grey, finished.data());
            break;
        case 8:
            PutGlyph<8>(key, grey, finished.data());
            break;
        case 16:
            PutGlyph<16>(key, grey, finished.data());
            break;
        case 24:
            PutGlyph<24>(key, grey, finished.data());
            break;
        case 32:
            PutGlyph<32>(key, grey, finished.data());
            break;
        default:
            break;
    }
}

std::size_t GlyphStore::Bytes() const {
    std::size_t bytes = 0;
    for (const Slot& slot : slots_) bytes += slot.Bytes();
    return bytes;
}

const std::uint8_t* GlyphStore::Find(const GlyphKey& key, std::span<const std::uint8_t> grey) {
    // All codes of one colour pair have slots of their own.
    Slot& slot = slots_[(key.Symbol + 256U * (key.Pair + 7U * key.BitDepth)) % kSlots];
    if (slot.Key == key && std::ranges::equal(slot.Grey, grey)) return slot.Finished.data();
    bytes_ -= slot.Bytes();
    slot.Key = key;
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
