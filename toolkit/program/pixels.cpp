#include "toolkit/program/pixels.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <vector>

#include "toolkit/core/memory.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/palette.h"
#include "toolkit/text/blend.h"
#include "toolkit/window/window.h"

namespace korvandi {

namespace {

using toolkit::Need;

constexpr std::int64_t kBrightFrom = 128;

// A picture as it is at one moment; the record may change meanwhile.
struct Picture {
    explicit Picture(const t_Window& w)
        : Bits(w.BitDepth),
          Width(w.Width),
          Height(w.Height),
          RowBytes(toolkit::Times(Width, Bits) / 8),
          First(w.MemoryStart) {}

    [[nodiscard]] bool HasRow(std::int64_t y) const {
        return y >= 0 && y < Height && First >= 0 && Width <= toolkit::kMemorySize * 8;
    }

    std::int64_t Bits;
    std::int64_t Width;   // pixels
    std::int64_t Height;  // rows
    std::int64_t RowBytes;
    std::int64_t First;  // address
};

std::int64_t Brightness(const t_RGBColor& color) {
    return (color.Red + color.Green + color.Blue) / 3;
}

// What a pixel of fewer than 8 bits is.
unsigned Number(std::int64_t bits, const t_RGBColor& color) {
    if (bits == 1) return Brightness(color) >= kBrightFrom ? 1 : 0;
    return toolkit::NearestColor({color.Red, color.Green, color.Blue});
}

// Writes pixel `x` of a row whose first byte is row[0].
void PutSmall(std::span<std::uint8_t> row, std::int64_t bits, std::int64_t x, unsigned number) {
    std::uint8_t& byte = row[static_cast<std::size_t>(x * bits / 8)];
    const auto shift = static_cast<unsigned>(8 - bits - x * bits % 8);
    const unsigned mask = ((1U << static_cast<unsigned>(bits)) - 1) << shift;
    byte = static_cast<std::uint8_t>((byte & ~mask) | number << shift);
}

// Writes pixel `x`; the first byte of a pixel of 16 or 32 bits is left as it is.
void Put(std::span<std::uint8_t> row, std::int64_t bits, std::int64_t x, const t_RGBColor& color) {
    if (bits < 8) return PutSmall(row, bits, x, Number(bits, color));
    const auto end = static_cast<std::size_t>((x + 1) * bits / 8);
    if (bits <= 16) {
        row[end - 1] = static_cast<std::uint8_t>(Brightness(color));
    } else {
        row[end - 3] = color.Red;
        row[end - 2] = color.Green;
        row[end - 1] = color.Blue;
    }
}

t_RGBColor ColorOfNumber(std::int64_t bits, unsigned number) {
    return t_PaletteColor(bits == 1 ? (number == 0 ? 0 : 15) : number);
}

// The color of the last pixel in `bytes`.
t_RGBColor LastColor(std::span<const std::uint8_t> bytes, std::int64_t bits) {
    const std::uint8_t last = bytes.back();
    if (bits <= 16) return {255, last, last, last};
    return {255, bytes[bytes.size() - 3], bytes[bytes.size() - 2], last};
}

}  // namespace

void SetPixel(std::uint8_t window, std::int64_t x, std::int64_t y, const t_RGBColor& color) {
    if (toolkit::UsableWindow(__func__, window, Need::SetUp) == nullptr) return;
    SetPixels(window, x, y, {&color, 1});
}

void SetPixels(std::uint8_t window, std::int64_t x, std::int64_t y,
               std::span<const t_RGBColor> colors) {
    const t_Window* const w = toolkit::UsableWindow(__func__, window, Need::SetUp);
    if (w == nullptr) return;
    const Picture picture(*w);
    const std::int64_t first = std::max<std::int64_t>(x, 0);
    const std::int64_t end = std::min(picture.Width, toolkit::Plus(x, std::ssize(colors)));
    if (!picture.HasRow(y) || first >= end) return;
    const std::int64_t firstByte = first * picture.Bits / 8;
    std::vector<std::uint8_t> row(
        static_cast<std::size_t>((end * picture.Bits + 7) / 8 - firstByte));
    const std::int64_t address =
        toolkit::Plus(picture.First, toolkit::Times(y, picture.RowBytes)) + firstByte;
    if (!toolkit::ReadRun(address, row)) return;
    const std::int64_t before = firstByte * 8 / picture.Bits;  // pixels left of the run
    for (std::int64_t i = first; i < end; ++i) {
        Put(row, picture.Bits, i - before, colors[static_cast<std::size_t>(i - x)]);
    }
    toolkit::WriteRun(address, row);
}

t_RGBColor Pixel(std::uint8_t window, std::int64_t x, std::int64_t y) {
    constexpr t_RGBColor kNone{0, 0, 0, 0};
    const t_Window* const w = toolkit::UsableWindow(__func__, window, Need::SetUp);
    if (w == nullptr) return kNone;
    const Picture picture(*w);
    if (!picture.HasRow(y) || x < 0 || x >= picture.Width) return kNone;
    std::array<std::uint8_t, 4> buffer{};
    const auto bytes = std::span(buffer).first(
        static_cast<std::size_t>(std::max<std::int64_t>(picture.Bits / 8, 1)));
    const std::int64_t address =
        toolkit::Plus(picture.First, toolkit::Times(y, picture.RowBytes)) + x * picture.Bits / 8;
    if (!toolkit::ReadRun(address, bytes)) return kNone;
    if (picture.Bits >= 8) return LastColor(bytes, picture.Bits);
    const auto shift = static_cast<unsigned>(8 - picture.Bits - x * picture.Bits % 8);
    const unsigned mask = (1U << static_cast<unsigned>(picture.Bits)) - 1;
    return ColorOfNumber(picture.Bits, bytes[0] >> shift & mask);
}

}  // namespace korvandi
