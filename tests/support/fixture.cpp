#include "tests/support/fixture.h"

#include <atomic>
#include <future>

#include "app/interface.h"
#include "tests/support/globals.h"

namespace {

std::uint8_t TestInk(int code, int x, int y) {
    if (code <= 14) {
        const int quarter = (y < 4 ? 8 : 2) >> (x < 4 ? 0 : 1);
        return (code & quarter) == 0 ? 255 : 0;
    }
    if (code == ' ') return 0;
    if (y == 0) return (code >> (7 - x) & 1) != 0 ? 255 : 0;
    return y == 7 ? static_cast<std::uint8_t>(code) : 0;
}

}  // namespace

ToolkitTest::ToolkitTest() : delegate(nullptr) {
    ResetGlobals();
    t_AppDelegate = &delegate;
    BuildInterface(delegate);
    desktop.Client = &delegate;
    desktop.Files["test.font"] = FontFile(TestFont());
    desktop.ResourceFolder = "/resources";
    initvxtools();
    t_TitleBarHeight = static_cast<std::int64_t>(desktop.AboveContent);
    desktop.ClearPrinted();
}

std::string ToolkitTest::Printed(const std::function<void()>& action) {
    desktop.ClearPrinted();
    action();
    return desktop.Printed();
}

void ToolkitTest::OnTwoThreads(const std::function<void(int thread)>& action) {
    std::atomic<int> ready = 0;
    std::atomic<int> done = 0;
    const auto run = [&](int thread) {
        ++ready;
        while (ready < 2) {
        }
        action(thread);
        ++done;
    };
    const auto first = std::async(std::launch::async, run, 0);
    const auto second = std::async(std::launch::async, run, 1);
    ASSERT_TRUE(desktop.ServeUntil([&] { return done == 2; }));
}

platform::headless::HeadlessView& ToolkitTest::View(std::uint8_t window) {
    return dynamic_cast<platform::headless::HeadlessView&>(*t_WindowView(window));
}

platform::headless::HeadlessWindow& ToolkitTest::Host(std::uint8_t window) {
    return dynamic_cast<platform::headless::HeadlessWindow&>(*t_WindowHostWindow(window));
}

WindowTest::WindowTest() {
    Open(0, 24, 8, 4);
    desktop.ClearPrinted();
}

void WindowTest::Open(std::uint8_t window, std::int64_t bitDepth, std::int64_t columns,
                      std::int64_t lines, const t_Font& font) {
    t_InitWindow(window, bitDepth, true, columns * font.Width, lines * font.Height, 0, 0, font,
                 true);
    t_WindowFront(window);
}

void WindowTest::Open(std::uint8_t window, std::int64_t bitDepth, std::int64_t columns,
                      std::int64_t lines) {
    Open(window, bitDepth, columns, lines, TestFont());
}

const t_Font& TestFont() {
    static const t_Font font = [] {
        t_Font made;
        made.Format = 2;
        made.End = 255;
        made.Width = made.Height = 8;
        for (int code = 0; code < 256; ++code) {
            for (int y = 0; y < 8; ++y) {
                for (int x = 0; x < 8; ++x) made.Data.push_back(TestInk(code, x, y));
            }
        }
        return made;
    }();
    return font;
}

const t_Font& EmptyFont() {
    static const t_Font font;
    return font;
}

std::vector<std::uint8_t> FontFile(const t_Font& font) {
    std::vector<std::uint8_t> file = {16, 'v', 'x', 'f', 'n'};
    file.push_back(static_cast<std::uint8_t>(font.Format));
    for (int shift = 24; shift >= 0; shift -= 8) {
        file.push_back(static_cast<std::uint8_t>(font.Size >> shift));
    }
    file.push_back(font.Start);
    file.push_back(font.End);
    file.push_back(static_cast<std::uint8_t>(font.Width));
    file.push_back(static_cast<std::uint8_t>(font.Height));
    file.push_back(static_cast<std::uint8_t>(font.Reserved >> 8));
    file.push_back(static_cast<std::uint8_t>(font.Reserved));
    file.insert(file.end(), font.Data.begin(), font.Data.end());
    return file;
}

std::string ScreenText(std::uint8_t window) {
    const t_Window& w = t_Windows[window];
    std::string text;
    for (std::int64_t line = 1; line <= w.TextHeight; ++line) {
        for (std::int64_t column = 1; column <= w.TextWidth; ++column) {
            const std::uint8_t code = toolkit::CellAt(w, column, line).Symbol;
            text += code >= 32 && code < 127 ? static_cast<char>(code) : '.';
        }
        text += '\n';
    }
    return text;
}

std::string ColorsOfLine(std::uint8_t window, std::int64_t line) {
    const t_Window& w = t_Windows[window];
    std::string text;
    for (std::int64_t column = 1; column <= w.TextWidth; ++column) {
        text += t_HexText(toolkit::CellAt(w, column, line).Color).substr(6) + " ";
    }
    return text;
}

std::vector<std::uint8_t> PictureBytes(std::uint8_t window) {
    const t_Window& w = t_Windows[window];
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(w.Width * w.Height * w.BitDepth / 8));
    toolkit::ReadRun(w.MemoryStart, bytes);
    return bytes;
}

void Type(std::string_view characters) {
    t_QueueKeys(characters);
}

void TypeCodes(const std::vector<std::int64_t>& values) {
    for (const std::int64_t value : values) {
        t_Event event;
        event.Kind = 1;
        event.Value = value;
        t_EventQueue.Append(event);
    }
}
