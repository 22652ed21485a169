#include "toolkit/program/window_text.h"

#include <algorithm>
#include <vector>

#include "platform/main_queue.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/utf8.h"
#include "toolkit/window/host_windows.h"
#include "toolkit/window/window.h"

namespace korvandi {

using toolkit::Need;

void SetTitle(std::uint8_t window, std::string_view title) {
    if (toolkit::UsableWindow(__func__, window, Need::SetUp) == nullptr) return;
    platform::RunOnMain([&] {
        platform::Window* const host = t_WindowHostWindow(window);
        if (host != nullptr) host->SetTitle(title);
    });
}

std::int64_t TextWidth(std::uint8_t window, std::string_view text) {
    constexpr char32_t kFirstPrintable = 32;
    const t_Window* const w = toolkit::UsableWindow(__func__, window, Need::TextBlock);
    if (w == nullptr) return 0;
    const std::vector<char32_t> characters = toolkit::Characters(text);
    const auto printable = std::count_if(characters.begin(), characters.end(),
                                         [](char32_t c) { return c >= kFirstPrintable; });
    return toolkit::Times(printable, w->Font.Width);
}

}  // namespace korvandi
