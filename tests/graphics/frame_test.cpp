#include "toolkit/graphics/frame.h"

#include <array>

#include "tests/support/fixture.h"
#include "tests/support/random.h"
#include "toolkit/core/numbers.h"
#include "toolkit/text/finished_glyphs.h"

using platform::Picture;
using platform::PixelOrder;

namespace {

class Frames : public WindowTest {
  protected:
    void OpenSize(std::int64_t depth, std::int64_t width, std::int64_t height) {
        t_InitWindow(0, depth, true, width, height, 0, 0, EmptyFont(), true);
        t_WindowFront(0);
        desktop.ClearPrinted();
    }

    // The window's picture filled with every byte value in every place.
    void Fill() {
        std::vector<std::uint8_t> bytes(
            static_cast<std::size_t>(w.Width * w.Height * w.BitDepth / 8));
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            bytes[i] = static_cast<std::uint8_t>(i + i / 256 + i / 1000);
        }
        toolkit::WriteRun(w.MemoryStart, bytes);
    }

    t_Window& w = t_Windows[0];
};

t_RGBColor PixelAt(const t_Window& w, std::int64_t x, std::int64_t y) {
    const std::int64_t i = y * w.Width + x;
    const std::int64_t depth = w.BitDepth;
    const auto byte = [&w](std::int64_t offset) { return toolkit::Peek(w.MemoryStart + offset); };
    if (depth == 1) return t_PaletteColor((byte(i / 8) >> (7 - x % 8) & 1) != 0 ? 15 : 0);
    if (depth == 4) return t_PaletteColor(byte(i / 2) >> (x % 2 == 0 ? 4 : 0) & 15);
    if (depth == 8) return {255, byte(i), byte(i), byte(i)};
    if (depth == 16) return {255, byte(2 * i + 1), byte(2 * i + 1), byte(2 * i + 1)};
    const std::int64_t red = depth == 24 ? 3 * i : 4 * i + 1;
    return {255, byte(red), byte(red + 1), byte(red + 2)};
}

Picture Expected(const t_Window& w, PixelOrder order) {
    Picture picture{w.Width, w.Height, order, {}};
    for (std::int64_t y = 0; y < w.Height; ++y) {
        for (std::int64_t x = 0; x < w.Width; ++x) {
            const auto [alpha, red, green, blue] = PixelAt(w, x, y);
            const bool alphaFirst = order == PixelOrder::AlphaRedGreenBlue;
            for (const std::uint8_t byte : alphaFirst ? std::array{alpha, red, green, blue}
                                                      : std::array{blue, green, red, alpha}) {
                picture.Bytes.push_back(byte);
            }
        }
    }
    return picture;
}

// That a picture, up to now equal to `before`, follows a change of the window's memory.
void ExpectFollowed(const t_Window& w, const Picture& before, Picture& picture) {
    Picture other = before;  // as good as the first one until that is filled again
    const platform::Rows changed = t_WindowImage(0, picture).value();
    ASSERT_EQ(picture, Expected(w, picture.Order));
    EXPECT_NE(changed, platform::Rows{});
    EXPECT_EQ(t_WindowImage(0, picture), platform::Rows{});
    EXPECT_EQ(t_WindowImage(0, other), changed);
    EXPECT_EQ(other, picture);
    EXPECT_NE(before, picture);
    picture.Order = PixelOrder::BlueGreenRedAlpha;
    EXPECT_NE(t_WindowImage(0, picture), platform::Rows{});
    picture.Order = PixelOrder::AlphaRedGreenBlue;
    EXPECT_NE(t_WindowImage(0, picture), platform::Rows{});
}

}  // namespace

TEST(Palette, HoldsTheSixteenColors) {
    constexpr std::uint32_t kColors[16] = {
        0x000000, 0xFF0000, 0x000080, 0xFF00FF, 0x008000, 0x545454, 0x0000FF, 0x0080FF,
        0x804000, 0xFF8000, 0xA8A8A8, 0xFF8080, 0x00FF00, 0xFFFF00, 0x00FFFF, 0xFFFFFF};
    for (std::int64_t n = 0; n < 16; ++n) {
        const auto [alpha, red, green, blue] = t_PaletteColor(n);
        EXPECT_EQ(red << 16 | green << 8 | blue, kColors[n]) << n;
        EXPECT_EQ(alpha, 255);
    }
    for (const std::int64_t n : {16, 255}) EXPECT_EQ(t_PaletteColor(n), (t_RGBColor{255, 0, 0, 0}));
}

TEST_F(Frames, ShowEveryByteAtEveryDepthInBothPixelOrders) {
    using Size = std::array<int, 3>;
    for (const auto& [depth, width, height] :
         {Size{1, 2048, 32}, Size{1, 40, 33}, Size{4, 512, 32}, Size{4, 36, 33}, Size{8, 33, 33},
          Size{8, 47, 100}, Size{16, 33, 33}, Size{16, 47, 100}, Size{24, 33, 33},
          Size{24, 47, 100}, Size{32, 33, 33}, Size{32, 47, 100}}) {
        OpenSize(depth, width, height);
        Fill();
        for (const PixelOrder order :
             {PixelOrder::AlphaRedGreenBlue, PixelOrder::BlueGreenRedAlpha}) {
            Picture picture;
            picture.Order = order;
            ASSERT_TRUE(t_WindowImage(0, picture));
            EXPECT_EQ(picture, Expected(w, order)) << depth << " " << width;
        }
    }
    EXPECT_EQ(desktop.Printed(), "");
}

TEST_F(Frames, NeverReadOutsideTheMemoryWhateverTheRecordSays) {
    Random random;
    const std::int64_t memory = toolkit::kMemorySize;
    for (const std::int64_t start : {INT64_C(0x10000), memory - 100'000}) {
        toolkit::WriteRun(start, random.Bytes(100'000));
    }
    int frames = 0;
    for (int i = 0; i < 2000; ++i) {
        w.BitDepth = random.OneOf({1, 4, 8, 16, 24, 32});
        w.Width = random.OneOf({32, 33, 40, 64, 1, 0, -1, 8192, 8193, INT64_MAX, INT64_MIN});
        w.Height = random.OneOf({32, 33, 50, 1, 0, -8, 8193, INT64_MAX});
        const std::int64_t bits = toolkit::Times(toolkit::Times(w.Width, w.Height), w.BitDepth);
        w.MemoryStart =
            random.OneOf({memory - bits / 8, (memory - bits / 8) / 16 * 16, memory - bits / 8 + 1,
                          0, -1, memory, INT64_MAX, INT64_MIN, memory - 1, 0x10000});
        const bool sane = w.Width >= 1 && w.Width <= 8192 && w.Height >= 1 && w.Height <= 8192 &&
                          bits % 8 == 0 && w.MemoryStart >= 0 && w.MemoryStart <= memory - bits / 8;
        const std::optional<Picture> picture = t_WindowImage(0);
        ASSERT_EQ(picture.has_value(), sane) << w.Width << " " << w.Height << " " << w.MemoryStart;
        if (!picture || bits > 1'000'000 || (w.BitDepth < 8 && w.Width % 8 != 0)) continue;
        ++frames;
        ASSERT_EQ(*picture, Expected(w, PixelOrder::AlphaRedGreenBlue));
    }
    EXPECT_GT(frames, 100);
    EXPECT_EQ(desktop.Printed(), "");
}

TEST_F(Frames, AreNotMadeOfWindowsThatCannotBeShown) {
    const auto line = [this] {
        return Printed([] { EXPECT_FALSE(t_WindowImage(0).has_value()); });
    };
    w.UpdateDuration = w.UpdateFinished = 77;
    w.Visible = false;
    EXPECT_EQ(line(), "");
    w.Visible = true;
    w.BitDepth = 12;
    std::string lines;
    while (lines.size() < std::size_t{64} * 32 * 34) lines += "t_WindowImage: Illegal bit depth.\n";
    EXPECT_EQ(line(), lines);
    w.Initialized = false;
    EXPECT_EQ(line(), "t_WindowImage: Graphic window #0 not initialized.\n");
    t_ToolsReady = false;
    EXPECT_EQ(line(), "");
    EXPECT_EQ(w.UpdateDuration, 77);
    EXPECT_EQ(w.UpdateFinished, 77);
}

TEST_F(Frames, NoteTheirTimesAndReuseTheirBuffer) {
    Picture picture;
    ASSERT_TRUE(t_WindowImage(0, picture));
    const std::uint8_t* const bytes = picture.Bytes.data();
    toolkit::SleepMilliseconds(500);
    w.UpdateDuration = 77;
    t_PrintSymbol(0, 'A', 0xF0, 1, 1);
    ASSERT_TRUE(t_WindowImage(0, picture));
    EXPECT_EQ(w.UpdateDuration, 0);  // the clock stood still
    EXPECT_EQ(w.UpdateFinished, toolkit::Milliseconds());
    EXPECT_EQ(picture.Bytes.data(), bytes);
    EXPECT_EQ(picture, Expected(w, PixelOrder::AlphaRedGreenBlue));
    OpenSize(8, 50, 40);
    ASSERT_TRUE(t_WindowImage(0, picture));
    EXPECT_EQ(picture.Bytes.size(), 50U * 40 * 4);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(picture.Bytes.data()) % 64, 0U);
}

TEST_F(Frames, TellWhichRowsChanged) {
    constexpr std::int64_t kRow = 2080;  // bytes of the picture
    Random random;
    Picture picture;
    for (const std::int64_t depth : {1, 4, 8, 16, 24, 32}) {
        OpenSize(depth, 520, 64);
        EXPECT_EQ(t_WindowImage(0, picture), (platform::Rows{0, 64}));
        EXPECT_EQ(t_WindowImage(0, picture), platform::Rows{});
        for (int i = 0; i < 100; ++i) {
            const Picture before = picture;
            const std::int64_t bytes = w.Width * w.Height * depth / 8;
            for (std::int64_t n = random.Between(1, 3); n > 0; --n) {
                toolkit::Poke(w.MemoryStart + random.Between(0, bytes - 1), random.Byte());
            }
            const platform::Rows changed = t_WindowImage(0, picture).value();
            ASSERT_EQ(picture, Expected(w, picture.Order));
            for (std::int64_t y = 0; y < 64; ++y) {
                if (y >= changed.First && y < changed.End) continue;
                const auto row = before.Bytes.begin() + kRow * y;
                ASSERT_TRUE(std::equal(row, row + kRow, picture.Bytes.begin() + kRow * y));
            }
            ASSERT_EQ(changed == platform::Rows{}, picture == before);
        }
    }
}

TEST_F(Frames, FollowEveryWayToWriteAndLookAtNothingElse) {
    Open(0, 24, 40, 20);  // four rows and a bit are one piece
    const std::int64_t row = w.Width * 3;
    const std::int64_t far = w.MemoryStart + 100 * row;
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(row), 0x5A);
    const toolkit::RowBlock block{far, row, 24, 8};
    Random random;
    std::uint8_t value = 0;
    const std::function<void()> writes[] = {
        [&] { toolkit::Poke(far, ++value); },
        [&] { toolkit::WriteRun(far, std::span(&++value, 1)); },
        [&] { toolkit::FillRun(far, 5 * row, ++value); },
        [&] { toolkit::MoveRun(far - 60 * row, far, 4000); },  // each move onto other bytes
        [&] { toolkit::MoveRun(far + row, far - 15, 4000); },
        [&] { toolkit::MoveRun(far, far + 16 * row, 4000); },
        [&] { toolkit::WriteRows(block, bytes.data()); },
        [&] { toolkit::MergeRows(block, PictureBytes(0).data(), 2); },
        [&] {
            const toolkit::RowBlock glyph{far - far % 8, row, 48, 8};
            EXPECT_TRUE(toolkit::PaintGlyph({65, 0xC1, 24}, random.Bytes(128), glyph));
        },
        [&] { t_PrintSymbol(0, 'A', 0x1C, 3, 14); },
        [&] { t_ScrollUp(0); },
        [&] { w.MemoryStart = w.MemoryStart - 300; },
        [&] { w.Height = w.Height - 8; },
        [&] { Open(0, 24, 40, 20); },
    };
    for (std::int64_t i = 0; i < w.Width * w.Height * 3; i += 7) {
        toolkit::Poke(w.MemoryStart + i, static_cast<std::uint8_t>(i >> 4));
    }
    Picture picture;
    ASSERT_TRUE(t_WindowImage(0, picture));
    for (const auto& write : writes) {
        SCOPED_TRACE(&write - writes);
        const Picture before = picture;
        write();
        ExpectFollowed(w, before, picture);
    }
}

TEST_F(Frames, SeeNothingWithoutAMarkUntilAProgramSaysThatItWritesSo) {
    const std::int64_t far = w.MemoryStart + 100;
    Picture picture;
    ASSERT_TRUE(t_WindowImage(0, picture));
    const_cast<std::uint8_t*>(t_Memory.data())[far] ^= 1;
    EXPECT_EQ(t_WindowImage(0, picture), platform::Rows{});
    t_Memory.DataForWriting()[far] ^= 3;
    EXPECT_NE(t_WindowImage(0, picture), platform::Rows{});
    EXPECT_EQ(picture, Expected(w, picture.Order));
}

TEST_F(Frames, ABlockThatStandsIsNoChangeAndOneThatIsTornIsMended) {
    t_Font font = TestFont();
    font.Width = 16;  // rows of whole vectors
    font.Height = 4;
    Open(0, 24, 20, 20, font);
    Picture picture;
    const auto changes = [&picture] { return t_WindowImage(0, picture) != platform::Rows{}; };
    constexpr std::int64_t kSecondCell = 48;
    for (int round = 0; round < 3; ++round) {  // kept ready to paint from the second time on
        t_PrintSymbol(0, 3, 0x1C, 2, 1);
        EXPECT_EQ(changes(), round == 0);
        toolkit::Poke(w.MemoryStart + kSecondCell, 99);
        EXPECT_TRUE(changes());
        t_PrintSymbol(0, 3, 0x1C, 2, 1);
        EXPECT_NE(toolkit::Peek(w.MemoryStart + kSecondCell), 99);
        EXPECT_TRUE(changes());
    }
}

TEST_F(Frames, SnapshotsAreMadeOfWindowsWithAView) {
    EXPECT_EQ(t_WindowSnapshot(0), t_WindowImage(0));
    EXPECT_TRUE(t_WindowSnapshot(0).has_value());
    EXPECT_EQ(Printed([] { EXPECT_FALSE(t_WindowSnapshot(8).has_value()); }), "");
    delegate.t_View00 = nullptr;
    EXPECT_FALSE(t_WindowSnapshot(0).has_value());
}
