#include "toolkit/window/window.h"

#include "toolkit/core/memory.h"
#include "toolkit/core/output.h"
#include "toolkit/core/threads.h"

t_WindowTable& t_Windows = *new t_WindowTable;
constinit toolkit::Shared<std::int64_t> t_HighMemory = toolkit::kHighestAddress;
constinit toolkit::Shared<std::uint8_t> t_FirstWindow = toolkit::kNoWindow;

namespace toolkit {

bool IsUsable(const t_Window& w, Need need) {
    return t_ToolsReady && w.Initialized && (need == Need::SetUp || w.TextMemoryStart >= 0);
}

void PrintNotInitialized(std::string_view operation, std::uint8_t window) {
    PrintLine(operation, ": Window #", window, " not initialized.");
}

t_Window* GraphicWindow(std::string_view operation, std::uint8_t window) {
    if (window < kGraphicWindows) return &t_Windows[window];
    PrintLine(operation, ": Window is not a graphic window.");
    return nullptr;
}

t_Window* UsableWindow(std::string_view operation, std::uint8_t window, Need need) {
    t_Window* const w = GraphicWindow(operation, window);
    if (w == nullptr || IsUsable(*w, need)) return w;
    PrintNotInitialized(operation, window);
    return nullptr;
}

std::int64_t CellIndex(const t_Window& w, std::int64_t column, std::int64_t line) {
    const std::int64_t width = w.TextWidth;
    if (column < 1 || column > width || line < 1 || line > w.TextHeight) return -1;
    const std::int64_t half = ColorOffset(w);
    // line is at most half here, so that the product below stays small.
    if (line > half || width > half) return -1;
    const std::int64_t index = (line - 1) * width + column - 1;
    return index < half ? index : -1;
}

Cell CellAt(const t_Window& w, std::int64_t column, std::int64_t line) {
    const std::int64_t index = CellIndex(w, column, line);
    if (index < 0) return {};
    const std::int64_t address = w.TextMemoryStart + index;
    return {Peek(address), Peek(address + ColorOffset(w))};
}

}  // namespace toolkit

void t_WindowFont(std::uint8_t window, const t_Font& font) {
    t_Window* const w = toolkit::UsableWindow(__func__, window, toolkit::Need::SetUp);
    if (w != nullptr) w->Font = font;
}
