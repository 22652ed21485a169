#pragma once

#include <cstdint>
#include <string_view>

#include "toolkit/core/outlets.h"
#include "toolkit/core/text_layout.h"

// The numbers of the windows: 0 to 7 for the graphic windows, one each for the others, and what is
// known of those beforehand.

namespace toolkit {

inline constexpr std::uint8_t kGraphicWindows = 8;
inline constexpr std::uint8_t kPasteboardWindow = 8;
inline constexpr std::uint8_t kPrinterWindow = 9;
inline constexpr std::uint8_t kConsoleWindow = 10;
inline constexpr std::uint8_t kPreferencesWindow = 11;
inline constexpr std::uint8_t kMainWindow = 12;
inline constexpr std::uint8_t kNoWindow = 255;

/// A window that is no graphic window: its parts among the outlets, nullptr for parts that it does
/// not have. Those with a text are text windows.
struct OtherWindow {
    std::uint8_t Number;
    std::string_view Name;  // as fault lines call it
    platform::Window* Outlets::*Host;
    platform::ScrollView* Outlets::*Scroll = nullptr;
    platform::TextView* Outlets::*Text = nullptr;
    platform::Ruler* Outlets::*Ruler = nullptr;
    const platform::TextLayout* Layout = nullptr;  // of a text window
};

/// In the order in which a window's number is looked up.
inline constexpr OtherWindow kOtherWindows[] = {
    {kPrinterWindow, "Virtual printer", &Outlets::VirtualPrinterWindow,
     &Outlets::VirtualPrinterScrollView, &Outlets::VirtualPrinterTextView,
     &Outlets::VirtualPrinterRuler, &kRuledText},
    {kConsoleWindow, "System console", &Outlets::SystemConsoleWindow,
     &Outlets::SystemConsoleScrollView, &Outlets::SystemConsoleTextView,
     &Outlets::SystemConsoleRuler, &kRuledText},
    {kPasteboardWindow, "Pasteboard", &Outlets::PasteboardWindow, &Outlets::PasteboardScrollView,
     &Outlets::PasteboardTextView, nullptr, &kPlainText},
    {kPreferencesWindow, "Preferences", &Outlets::PreferencesWindow},
    {kMainWindow, "Main", &Outlets::MainWindow},
};

/// The row of window `window`; nullptr for any other number than 8 to 12.
[[nodiscard]] constexpr const OtherWindow* OtherWindowOf(std::uint8_t window) {
    for (const OtherWindow& row : kOtherWindows) {
        if (row.Number == window) return &row;
    }
    return nullptr;
}

}  // namespace toolkit
