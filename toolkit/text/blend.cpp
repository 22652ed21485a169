#include "toolkit/text/blend.h"

#include <atomic>
#include <cstddef>

#include "toolkit/core/palette.h"

namespace toolkit {

namespace {

constexpr int kFullInk = 255;
constexpr int kBrightFrom = 128;

using Components = std::array<int, 3>;

Components ComponentsOf(std::size_t number) {
    return {t_Palette.Red[number], t_Palette.Green[number], t_Palette.Blue[number]};
}

int Sum(const Components& c) {
    return c[0] + c[1] + c[2];
}

// Each quotient is rounded down before the sum.
int Mix(int ink, int foreground, int background) {
    return ink * foreground / kFullInk + (kFullInk - ink) * background / kFullInk;
}

Components MixColors(int ink, const Components& foreground, const Components& background) {
    Components mixed{};
    for (std::size_t i = 0; i < mixed.size(); ++i)
        mixed[i] = Mix(ink, foreground[i], background[i]);
    return mixed;
}

template <typename Fill>
void ForEachInk(std::uint8_t pair, const Fill& fill) {
    const Components foreground = ComponentsOf(pair >> 4U);
    const Components background = ComponentsOf(pair & 15U);
    for (int ink = 0; ink <= kFullInk; ++ink) {
        fill(static_cast<std::size_t>(ink), ink, MixColors(ink, foreground, background));
    }
}

void Make(std::uint8_t pair, Blend& blend) {
    const int foreground = Sum(ComponentsOf(pair >> 4U)) / 3;
    const int background = Sum(ComponentsOf(pair & 15U)) / 3;
    ForEachInk(pair, [&](std::size_t i, int ink, const Components& mixed) {
        for (std::size_t c = 0; c < mixed.size(); ++c) {
            blend.Mixed[i][c] = static_cast<std::uint8_t>(mixed[c]);
        }
        blend.Grey[i] = static_cast<std::uint8_t>(Mix(ink, foreground, background));
        blend.Ink[i] = Sum(mixed) / 3 >= kBrightFrom ? 1 : 0;
    });
}

void Make(std::uint8_t pair, std::array<std::uint8_t, 256>& nearest) {
    ForEachInk(pair, [&](std::size_t i, int /*ink*/, const Components& mixed) {
        nearest[i] = NearestColor(mixed);
    });
}

// One table per colour pair, made by whichever thread needs it first and never changed after.
template <typename Table>
const Table& Kept(std::uint8_t pair) {
    static constinit std::array<std::atomic<const Table*>, 256> tables{};
    const Table* kept = tables[pair].load(std::memory_order_acquire);
    if (kept != nullptr) return *kept;
    auto* const made = new Table{};
    Make(pair, *made);
    if (tables[pair].compare_exchange_strong(kept, made, std::memory_order_acq_rel)) return *made;
    delete made;
    return *kept;
}

}  // namespace

// The lower number among equals.
std::uint8_t NearestColor(const std::array<int, 3>& color) {
    if (color[0] == color[1] && color[1] == color[2]) {
        constexpr std::uint8_t kGreys[] = {0, 5, 10, 15};
        constexpr int kGreyStep = 192;
        return kGreys[Sum(color) / kGreyStep];
    }
    std::uint8_t nearest = 0;
    int best = 65'535;
    for (std::uint8_t n = 0; n < 16; ++n) {
        const Components palette = ComponentsOf(n);
        int distance = 0;
        for (std::size_t i = 0; i < color.size(); ++i) {
            distance += (palette[i] - color[i]) * (palette[i] - color[i]);
        }
        if (distance < best) {
            nearest = n;
            best = distance;
        }
    }
    return nearest;
}

const Blend& BlendOf(std::uint8_t pair) {
    return Kept<Blend>(pair);
}

const std::array<std::uint8_t, 256>& NearestColorsOf(std::uint8_t pair) {
    return Kept<std::array<std::uint8_t, 256>>(pair);
}

}  // namespace toolkit
