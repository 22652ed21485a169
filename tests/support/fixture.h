#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "app/app_delegate.h"
#include "platform/headless/headless.h"
#include "tests/support/print_to.h"
#include "toolkit/toolkit.h"

// A toolkit on a headless desktop, fresh for every test. The test's thread is the main thread and,
// unless a test starts one, the program thread too: operations run at once, nothing runs beside
// them.

/// Every global is as at the start of the process; the tables are built; the windows exist.
class ToolkitTest : public testing::Test {
  protected:
    ToolkitTest();

    /// What `action` printed on standard output.
    std::string Printed(const std::function<void()>& action);

    /// Two threads run `action`, 0 and 1, and begin together.
    void OnTwoThreads(const std::function<void(int thread)>& action);

    /// A view of the headless desktop, graphic window 0 to 7.
    platform::headless::HeadlessView& View(std::uint8_t window);
    /// A window of the headless desktop by its number, 0 to 12.
    platform::headless::HeadlessWindow& Host(std::uint8_t window);

    platform::headless::Headless desktop;
    AppDelegate delegate;
};

/// The same, with graphic window 0 open: a grid of 8 x 4 cells in the test font, 24 bits, no
/// border, shown, nothing printed yet.
class WindowTest : public ToolkitTest {
  protected:
    WindowTest();

    /// Opens a window with a grid of columns x lines cells of `font`, shown.
    void Open(std::uint8_t window, std::int64_t bitDepth, std::int64_t columns, std::int64_t lines,
              const t_Font& font);
    void Open(std::uint8_t window, std::int64_t bitDepth, std::int64_t columns, std::int64_t lines);
};

/// A font whose cell is 8 x 8 pixels, so that 4 columns and lines make the smallest window. Glyph
/// 0 to 14 are the quarter blocks, the blank is empty, and every other glyph k has full ink in its
/// first row exactly where k has bits set, and ink of the grey k in its last row.
const t_Font& TestFont();

/// No font at all: what a window without a text block is opened with.
const t_Font& EmptyFont();

/// The font as a file in format 2.
std::vector<std::uint8_t> FontFile(const t_Font& font);

/// The characters of a window's grid, a line of text for each line, graphics and control codes as
/// full stops.
std::string ScreenText(std::uint8_t window);

/// The colour bytes of a line's cells, two hexadecimal digits and a blank each.
std::string ColorsOfLine(std::uint8_t window, std::int64_t line);

/// The window's graphic block as bytes.
std::vector<std::uint8_t> PictureBytes(std::uint8_t window);

/// Queues key events with these values, as if they had been typed.
void Type(std::string_view characters);
void TypeCodes(const std::vector<std::int64_t>& values);
