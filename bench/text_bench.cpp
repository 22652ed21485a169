#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "bench/ratio_table.h"
#include "bench/screen.h"
#include "toolkit/toolkit.h"

namespace {

constexpr std::int64_t kColumns = 80;
constexpr std::int64_t kLines = 25;
constexpr std::uint8_t kPair = 0xC0;

void Prepare(std::int64_t bitDepth) {
    const t_Window& w = t_Windows[0];
    if (w.BitDepth == bitDepth && w.TextWidth == kColumns) return;
    Screen::Open(bitDepth);
}

std::uint8_t Letter(std::int64_t n) {
    return static_cast<std::uint8_t>(33 + n % 90);
}

// Writes bytes where `cells` cells of a line of text have their pixels, row by row.
class RowWriter {
  public:
    explicit RowWriter(std::int64_t bitDepth)
        : rowBytes_(static_cast<std::size_t>(1280 * bitDepth / 8)),
          cellBytes_(static_cast<std::size_t>(16 * bitDepth / 8)),
          picture_(rowBytes_ * 800),
          cell_(cellBytes_ * 32, 0x5A) {}

    void Write(std::int64_t line, std::int64_t cells) {
        for (std::size_t column = 0; column < static_cast<std::size_t>(cells); ++column) {
            std::uint8_t* to = picture_.data() + static_cast<std::size_t>(line) * 32 * rowBytes_ +
                               column * cellBytes_;
            for (std::size_t row = 0; row < 32; ++row, to += rowBytes_) {
                std::memcpy(to, cell_.data() + row * cellBytes_, cellBytes_);
            }
        }
    }

    [[nodiscard]] std::vector<std::uint8_t>& Picture() { return picture_; }

  private:
    std::size_t rowBytes_;
    std::size_t cellBytes_;
    std::vector<std::uint8_t> picture_;
    std::vector<std::uint8_t> cell_;
};

void AddGlyphs(std::int64_t bitDepth, double goal) {
    auto writer = std::make_shared<RowWriter>(bitDepth);
    AddPair(
        "line of glyphs, " + std::to_string(bitDepth) + " bits", "writing its bytes row by row",
        [bitDepth] {
            Prepare(bitDepth);
            for (std::int64_t c = 1; c <= kColumns; ++c) t_PrintSymbol(0, Letter(c), kPair, c, 2);
        },
        [writer] { writer->Write(1, kColumns); }, goal);
}

// Every cell in another pair of colours: what is kept finished is of little use.
void AddMixedScreen() {
    auto writer = std::make_shared<RowWriter>(24);
    AddPair(
        "screen in mixed colours, 24 bits", "writing its bytes row by row",
        [] {
            Prepare(24);
            for (std::int64_t n = 0; n < kColumns * kLines; ++n) {
                t_PrintSymbol(0, Letter(n), static_cast<std::uint8_t>(n * 37 + n / 256),
                              n % kColumns + 1, n / kColumns + 1);
            }
        },
        [writer] {
            for (std::int64_t line = 0; line < kLines; ++line) writer->Write(line, kColumns);
        },
        2.3);
}

void AddPrint() {
    std::string text;
    for (std::int64_t c = 1; c < kColumns; ++c) text += static_cast<char>(Letter(c));
    AddPair(
        "t_Print of a line, 24 bits", "drawing its glyphs",
        [text] {
            Prepare(24);
            t_CursorHome(0);
            t_Print(0, text);
        },
        [] {
            Prepare(24);
            for (std::int64_t c = 1; c < kColumns; ++c) t_PrintSymbol(0, Letter(c), 0xF0, c, 1);
        },
        1.3);
}

void AddScreen() {
    auto writer = std::make_shared<RowWriter>(24);
    std::string text;
    for (std::int64_t i = 0; i < kColumns * kLines - 1; ++i) {
        text += static_cast<char>(Letter(i));
    }
    AddPair(
        "full screen of text, 24 bits", "writing its bytes row by row",
        [text] {
            Prepare(24);
            t_CursorHome(0);
            t_Print(0, text);
        },
        [writer] {
            for (std::int64_t line = 0; line < kLines; ++line) writer->Write(line, kColumns);
        },
        1.25);
}

void AddScroll(std::int64_t bitDepth) {
    auto writer = std::make_shared<RowWriter>(bitDepth);
    AddPair(
        "scroll with its blank line, " + std::to_string(bitDepth) + " bits",
        "memmove of the same bytes",
        [bitDepth] {
            Prepare(bitDepth);
            t_ScrollUp(0);
        },
        [writer] {
            std::vector<std::uint8_t>& picture = writer->Picture();
            const std::size_t line = picture.size() / kLines;
            std::memmove(picture.data(), picture.data() + line, picture.size() - line);
        },
        1.25);
}

void AddPlot() {
    auto writer = std::make_shared<RowWriter>(24);
    AddPair(
        "40 plots of two blocks, 24 bits", "writing the bytes of their cells row by row",
        [] {
            Prepare(24);
            t_LoResMode(0, 1);
            for (std::int64_t x = 0; x < 40; ++x) t_Plot(0, x, 20);
        },
        [writer] { writer->Write(10, kColumns); }, 1.4);
}

}  // namespace

void AddTextPairs() {
    AddGlyphs(1, 1.5);
    AddGlyphs(4, 1.5);
    AddGlyphs(8, 2.0);
    AddGlyphs(16, 2.2);
    AddGlyphs(24, 1.5);
    AddGlyphs(32, 2.0);
    AddMixedScreen();
    AddScreen();
    AddPrint();
    for (const std::int64_t bitDepth : {1, 4, 8, 16, 24, 32}) AddScroll(bitDepth);
    AddPlot();
}
