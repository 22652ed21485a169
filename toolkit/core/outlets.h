#pragma once

#include <array>
#include <cstdint>

#include "toolkit/core/shared.h"

namespace platform {
class Ruler;
class ScrollView;
class TextView;
class View;
class Window;
}  // namespace platform

namespace toolkit {

/// The parts of the interface that the toolkit reaches, as the application delegate holds them. All
/// empty until the interface is built; any may stay empty. Main thread.
struct Outlets {
    platform::View* t_View00 = nullptr;
    platform::View* t_View01 = nullptr;
    platform::View* t_View02 = nullptr;
    platform::View* t_View03 = nullptr;
    platform::View* t_View04 = nullptr;
    platform::View* t_View05 = nullptr;
    platform::View* t_View06 = nullptr;
    platform::View* t_View07 = nullptr;
    platform::Window* VirtualPrinterWindow = nullptr;
    platform::ScrollView* VirtualPrinterScrollView = nullptr;
    platform::TextView* VirtualPrinterTextView = nullptr;
    platform::Ruler* VirtualPrinterRuler = nullptr;
    platform::Window* SystemConsoleWindow = nullptr;
    platform::ScrollView* SystemConsoleScrollView = nullptr;
    platform::TextView* SystemConsoleTextView = nullptr;
    platform::Ruler* SystemConsoleRuler = nullptr;
    platform::Window* PasteboardWindow = nullptr;
    platform::ScrollView* PasteboardScrollView = nullptr;
    platform::TextView* PasteboardTextView = nullptr;
    platform::Window* MainWindow = nullptr;
    platform::Window* PreferencesWindow = nullptr;
};

/// The outlets of the graphic windows' views by window number.
inline constexpr std::array<platform::View * Outlets::*, 8> kViewOutlets = {
    &Outlets::t_View00, &Outlets::t_View01, &Outlets::t_View02, &Outlets::t_View03,
    &Outlets::t_View04, &Outlets::t_View05, &Outlets::t_View06, &Outlets::t_View07,
};

}  // namespace toolkit

/// The application delegate's outlets. Set by the delegate before anything else runs.
extern constinit toolkit::Shared<toolkit::Outlets*> t_AppDelegate;

/// The height of everything above the content of a titled window, points. Measured at launch.
extern constinit toolkit::Shared<std::int64_t> t_TitleBarHeight;
