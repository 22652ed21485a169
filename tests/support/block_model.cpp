#include "tests/support/block_model.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "tests/support/random.h"
#include "toolkit/toolkit.h"

namespace {

constexpr std::int64_t kTop = 0xFF'FFFF;
constexpr std::uint8_t kNobody = 255;  // owner of blocks that no window gives back any more

using Range = std::pair<std::int64_t, std::int64_t>;

t_Font FontOf8By8() {
    t_Font font;
    font.Width = font.Height = 8;
    font.Data = {0};
    return font;
}

const std::vector<std::uint8_t>& Noise() {
    static const std::vector<std::uint8_t> noise = Random().Bytes(1 << 16);
    return noise;
}

}  // namespace

std::int64_t BlockModel::Mark() const {
    std::int64_t mark = kTop;
    for (const Block& block : list_) mark -= block.Size;
    return mark;
}

void BlockModel::Append(std::uint8_t owner, bool text, std::int64_t bytes) {
    const std::int64_t start = (Mark() - bytes + 1) & 0xFFFF'F400;
    Block block{owner, text, Mark() - start + 1, {}};
    const auto size = static_cast<std::size_t>(block.Size);
    block.Content.reserve(size);
    // A stretch of the noise, from another place for every block, again and again.
    const std::vector<std::uint8_t>& noise = Noise();
    while (block.Content.size() < size) {
        noiseAt_ = (noiseAt_ * 5 + 1) % noise.size();
        const std::size_t count = std::min(noise.size() - noiseAt_, size - block.Content.size());
        const auto from = noise.begin() + static_cast<std::ptrdiff_t>(noiseAt_);
        block.Content.insert(block.Content.end(), from, from + static_cast<std::ptrdiff_t>(count));
    }
    list_.push_back(std::move(block));
}

bool BlockModel::Apply(const WindowSetUp& setUp, AppDelegate& delegate) {
    const t_Window& w = t_Windows[setUp.Window];
    platform::View*& outlet = delegate.*toolkit::kViewOutlets[setUp.Window];
    platform::View* const view = std::exchange(outlet, setUp.HasView ? outlet : nullptr);
    t_InitWindow(setUp.Window, setUp.BitDepth, true, setUp.Width, setUp.Height, 0, 0,
                 setUp.HasFont ? FontOf8By8() : t_Font(), true);
    outlet = view;

    std::erase_if(list_, [&](const Block& block) { return block.Owner == setUp.Window; });
    std::int64_t width = setUp.Width < 32 || setUp.Width > 8192 ? 1280 : setUp.Width;
    const std::int64_t height = setUp.Height < 32 || setUp.Height > 8192 ? 800 : setUp.Height;
    if (setUp.BitDepth == 4 && width % 4 != 0) width = (width + 1) & ~3;
    if (setUp.BitDepth == 1) width = (width + 7) & ~7;
    const std::int64_t graphic = height * setUp.BitDepth * width / 8;
    const std::int64_t text = setUp.HasFont ? 2 * (width / 8) * (height / 8) : 0;
    constexpr std::array<std::int64_t, 6> kDepths = {1, 4, 8, 16, 24, 32};
    const bool known = std::find(kDepths.begin(), kDepths.end(), setUp.BitDepth) != kDepths.end();
    if (!known || graphic + text > Mark() - 65'536) return false;
    for (const bool isText : {false, true}) {
        if (isText && text == 0) continue;
        Append(setUp.HasView ? setUp.Window : kNobody, isText, isText ? text : graphic);
        if (!setUp.HasView) continue;
        toolkit::WriteRun(isText ? w.TextMemoryStart : w.MemoryStart, list_.back().Content);
    }
    return setUp.HasView;
}

std::string BlockModel::Difference() const {
    std::array<Range, 8> graphic;
    std::array<Range, 8> text;
    graphic.fill({-1, -1});
    text.fill({-1, -1});
    std::int64_t end = kTop;
    for (const Block& block : list_) {
        const std::int64_t start = end - block.Size + 1;
        if (block.Owner != kNobody) {
            (block.Text ? text : graphic)[block.Owner] = {start, end};
            if (!std::equal(block.Content.begin(), block.Content.end(), t_Memory.data() + start)) {
                return "content of window " + std::to_string(block.Owner);
            }
        }
        end = start - 1;
    }
    if (t_HighMemory != end) return "mark " + std::to_string(t_HighMemory);
    for (std::size_t n = 0; n < 8; ++n) {
        const t_Window& w = t_Windows[n];
        if (Range(w.MemoryStart, w.MemoryEnd) != graphic[n] ||
            Range(w.TextMemoryStart, w.TextMemoryEnd) != text[n] ||
            w.Initialized != (graphic[n].first >= 0)) {
            return "record of window " + std::to_string(n);
        }
    }
    return "";
}
