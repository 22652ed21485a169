#include "toolkit/text/glyph.h"

#include <array>
#include <atomic>
#include <future>
#include <span>

#include "tests/support/fixture.h"
#include "tests/support/random_font.h"

namespace {

// A copy of all memory that was handed out and of a stretch below it, and what drawing does to it
// pixel by pixel.
class Model {
  public:
    Model() : bytes_(static_cast<std::size_t>(toolkit::kMemorySize - first_)) {
        toolkit::ReadRun(first_, bytes_);
    }

    void Draw(const t_Window& w, std::uint8_t symbol, std::uint8_t color, std::int64_t column,
              std::int64_t line) {
        const t_Font& font = w.Font;
        const int fg = w.TextInverse ? color % 16 : color / 16;
        const int bg = w.TextInverse ? color / 16 : color % 16;
        const std::int64_t size = font.Width * font.Height;
        const bool whole = (symbol + 1) * size <= std::ssize(font.Data);
        if (symbol >= font.Start && symbol <= font.End) {
            for (std::int64_t i = 0; i < size; ++i) {
                DrawPixel(w, whole ? font.Data.data()[symbol * size + i] : 0, fg, bg,
                          (column - 1) * font.Width + i % font.Width,
                          (line - 1) * font.Height + i / font.Width);
            }
        }
        if (column > w.TextWidth || line > w.TextHeight) return;
        const std::int64_t cell = w.TextMemoryStart + (line - 1) * w.TextWidth + column - 1;
        Put(cell, 255, symbol);
        Put(cell + (w.TextMemoryEnd - w.TextMemoryStart + 1) / 2, 255, fg * 16 + bg);
    }

    bool operator==(const Model&) const = default;

  private:
    using Components = std::array<int, 3>;

    static Components Palette(int number) {
        const t_RGBColor color = t_PaletteColor(number);
        return {color.Red, color.Green, color.Blue};
    }
    static int Sum(const Components& c) { return c[0] + c[1] + c[2]; }

    static int Nearest(const Components& mixed) {
        const int s = Sum(mixed);
        if (mixed[0] == mixed[1] && mixed[1] == mixed[2]) {
            return s < 192 ? 0 : s < 384 ? 5 : s < 576 ? 10 : 15;
        }
        int nearest = 0;
        int best = 65'535;
        for (int n = 0; n < 16; ++n) {
            int distance = 0;
            for (std::size_t i = 0; i < 3; ++i) {
                distance += (Palette(n)[i] - mixed[i]) * (Palette(n)[i] - mixed[i]);
            }
            if (distance < best) nearest = n;
            best = std::min(best, distance);
        }
        return nearest;
    }

    void DrawPixel(const t_Window& w, int g, int fg, int bg, std::int64_t x, std::int64_t y) {
        const auto mix = [g](int f, int b) { return g * f / 255 + (255 - g) * b / 255; };
        Components mixed{};
        for (std::size_t i = 0; i < 3; ++i) mixed[i] = mix(Palette(fg)[i], Palette(bg)[i]);
        const int grey = mix(Sum(Palette(fg)) / 3, Sum(Palette(bg)) / 3);
        const std::int64_t start = w.MemoryStart;
        const std::int64_t i = y * w.Width + x;
        const std::int64_t depth = w.BitDepth;
        const int bright = Sum(mixed) / 3 >= 128 ? 255 : 0;
        if (depth == 1) return Put(start + y * (w.Width / 8) + x / 8, 128 >> (x % 8), bright);
        if (depth == 4) {
            const int number = Nearest(mixed);
            return Put(start + y * (w.Width / 2) + x / 2, x % 2 == 0 ? 0xF0 : 0x0F, number * 17);
        }
        if (depth == 8) return Put(start + i, 255, grey);
        if (depth == 16) return Put(start + 2 * i + 1, 255, grey);
        std::int64_t address = start + (depth == 24 ? 3 * i : 4 * i + 1);
        for (const int component : mixed) Put(address++, 255, component);
    }

    void Put(std::int64_t address, int mask, int value) {
        std::uint8_t& byte = bytes_.at(static_cast<std::size_t>(address - first_));
        byte = static_cast<std::uint8_t>((byte & ~mask) | (value & mask));
    }

    std::int64_t first_ = t_HighMemory - 64;
    std::vector<std::uint8_t> bytes_;
};

class Glyphs : public WindowTest {
  protected:
    t_Font AnyFont() {
        constexpr std::int64_t kSizes[][2] = {{7, 5},  {8, 8}, {5, 9},   {16, 3},
                                              {3, 16}, {1, 1}, {13, 11}, {64, 36}};
        const auto& [width, height] = kSizes[random.Between(0, 7)];
        t_Font font = RandomFont(random, width, height);
        font.Start = static_cast<std::uint8_t>(random.Between(0, 40));
        font.End = static_cast<std::uint8_t>(random.Between(80, 255));
        // All data, or only some glyphs' and maybe one pixel less.
        const std::int64_t some = random.Between(2, 256) * width * height - random.Between(0, 1);
        if (random.Coin()) font.Data.resize(static_cast<std::size_t>(some));
        return font;
    }

    static std::string Outside(std::int64_t column, std::int64_t line) {
        return "t_PrintSymbol: Window #1 illegal coordinates (x = " + std::to_string(column) +
               ", y = " + std::to_string(line) + ").\n";
    }

    Random random;
};

}  // namespace

TEST_F(Glyphs, AreDrawnPixelByPixelAndStayInTheirWindow) {
    t_Window& w = t_Windows[1];
    for (const std::int64_t depth : {1, 4, 8, 16, 24, 32}) {
        for (std::uint8_t n = 0; n < 3; ++n) {
            t_InitWindow(n, depth, true, 64, 37, 0, 0, TestFont(), true);
        }
        toolkit::WriteRun(t_HighMemory + 1, random.Bytes(toolkit::kHighestAddress - t_HighMemory));
        Model model;
        for (int i = 0; i < 300; ++i) {
            if (i % 10 == 0) t_WindowFont(1, AnyFont());
            w.TextInverse = random.Coin();
            const std::int64_t glyphs = std::ssize(w.Font.Data) / (w.Font.Width * w.Font.Height);
            const auto symbol =
                static_cast<std::uint8_t>(random.OneOf({random.Byte(), glyphs - 1, glyphs}));
            const std::uint8_t color = random.Byte();
            const std::int64_t column = random.Between(0, w.Width / w.Font.Width + 1);
            const std::int64_t line = random.Between(0, w.Height / w.Font.Height + 1);
            // One cell, or a row of cells.
            const std::int64_t last = column + (random.Coin() ? 0 : random.Between(-1, 5));
            std::string lines;
            for (std::int64_t x = column; x <= last; ++x) {
                const bool fits = x >= 1 && line >= 1 && x * w.Font.Width <= w.Width &&
                                  line * w.Font.Height <= w.Height;
                if (fits) model.Draw(w, symbol, color, x, line);
                if (!fits) lines += Outside(x, line);
            }
            w.TextColor = color;
            EXPECT_EQ(Printed([&] {
                          last == column ? t_PrintSymbol(1, symbol, color, column, line)
                                         : t_TextHline(1, column, last, line, symbol);
                      }),
                      lines);
            ASSERT_EQ(Model(), model) << depth << " bits, step " << i;
        }
    }
}

TEST_F(Glyphs, MixEveryGreyInEveryPairOfColors) {
    t_Font ramp = TestFont();
    ramp.Width = ramp.Height = 16;
    for (std::size_t i = 0; i < 256; ++i) ramp.Data[i] = static_cast<std::uint8_t>(i);
    for (const std::int64_t depth : {1, 4, 8, 16, 24, 32}) {
        Open(1, depth, 4, 4, ramp);
        Model model;
        for (int color = 0; color < 256; ++color) {
            model.Draw(t_Windows[1], 0, static_cast<std::uint8_t>(color), 2, 2);
            t_PrintSymbol(1, 0, static_cast<std::uint8_t>(color), 2, 2);
            ASSERT_EQ(Model(), model) << depth << " bits, " << color;
        }
    }
}

TEST_F(Glyphs, OfOtherFormatsAreRecordedOnly) {
    t_Font font = TestFont();
    font.Start = 66;
    const std::vector<std::uint8_t> picture = PictureBytes(0);
    for (const std::int64_t format : {0, 100, 102, 1, 3, 99, -1}) {
        font.Format = format;
        t_WindowFont(0, font);
        EXPECT_EQ(Printed([] { t_PrintSymbol(0, 66, 0x5A, 1, 1); }),
                  format == 0 || format >= 100
                      ? "t_PrintSymbol: Font format must be uncompressed grey for text-printing.\n"
                      : "t_PrintSymbol: Illegal font format.\n");
        EXPECT_EQ(Printed([] { t_PrintSymbol(0, 65, 0xA5, 2, 1); }), "");  // before Start
        EXPECT_EQ(ScreenText(0).substr(0, 3), "BA ");
        EXPECT_EQ(ColorsOfLine(0, 1).substr(0, 6), "5A A5 ");
        EXPECT_EQ(PictureBytes(0), picture);
        t_PrintSymbol(0, 0, 0, 1, 1);
    }
}

TEST_F(Glyphs, NeedAFontAndACellOfThePicture) {
    Open(1, 24, 8, 4);
    for (const std::int64_t column : {INT64_MIN, INT64_C(-1), INT64_C(9), INT64_MAX}) {
        EXPECT_EQ(Printed([&] { t_PrintSymbol(1, 65, 0xF0, column, 2); }), Outside(column, 2));
    }
    const Model before;
    t_Windows[1].Height = 8192;  // more than its block holds
    t_PrintSymbol(1, 65, 0xF0, 1, 10);
    t_TextHline(1, 1, 8, 10, 65);
    EXPECT_EQ(Model(), before);
    t_WindowFont(1, EmptyFont());
    EXPECT_EQ(Printed([] { t_PrintSymbol(1, 65, 0xF0, 1, 1); }),
              "t_PrintSymbol: Window #1 not initialized.\n");
}

// Threads that draw the same glyphs share what was finished before.
TEST_F(Glyphs, AWindowsFontIsReplacedAlone) {
    t_InitWindow(2, 8, true, 64, 32, 0, 0, TestFont(), true);
    t_Window expected = t_Windows[2];
    expected.Font.Width = 4;
    EXPECT_EQ(Printed([&] { t_WindowFont(2, expected.Font); }), "");
    EXPECT_EQ(t_Windows[2], expected);
}

TEST_F(Glyphs, OfSeveralThreadsDoNotMix) {
    constexpr int kColors = 24;
    constexpr int kGlyphs = 256 * kColors;
    constexpr std::uint8_t kWindows[] = {0, 1, 2, 3};
    for (const std::uint8_t n : kWindows) Open(n, 24, 8, 4);
    const auto pixels = [](std::uint8_t window) {
        const t_Window& w = t_Windows[window];
        std::array<std::uint8_t, 192> bytes{};
        for (std::int64_t y = 0; y < 8; ++y) {
            toolkit::ReadRun(w.MemoryStart + y * w.Width * 3,
                             std::span(bytes).subspan(static_cast<std::size_t>(y) * 24, 24));
        }
        return bytes;
    };
    const auto draw = [&](std::uint8_t window, int glyph) {
        const auto symbol = static_cast<std::uint8_t>(glyph / kColors);
        t_PrintSymbol(window, symbol, static_cast<std::uint8_t>(glyph % kColors * 5), 1, 1);
        return pixels(window);
    };
    std::vector<decltype(pixels(0))> expected(kGlyphs);
    for (int glyph = 0; glyph < kGlyphs; ++glyph) expected.at(std::size_t(glyph)) = draw(0, glyph);
    std::atomic<int> wrong = 0;
    std::vector<std::future<void>> threads;
    for (const std::uint8_t n : kWindows) {
        threads.push_back(std::async(std::launch::async, [&, n] {
            for (int i = 0; i < 100'000; ++i) {
                const int glyph = i * (2 * n + 1) % kGlyphs;
                // Twice, so that it is kept.
                draw(n, glyph);
                wrong += draw(n, glyph) != expected.at(std::size_t(glyph));
            }
        }));
    }
    threads.clear();
    EXPECT_EQ(wrong, 0);
}
