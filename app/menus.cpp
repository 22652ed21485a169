#include "app/menus.h"

#include <algorithm>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "app/about.h"
#include "app/app_delegate.h"
#include "app/program_name.h"
#include "app/zoom.h"
#include "platform/platform.h"
#include "toolkit/core/output.h"
#include "toolkit/window/host_windows.h"
#include "toolkit/window/window.h"

namespace {

using platform::MenuItem;
using toolkit::IsVisible;
using toolkit::kConsoleWindow;
using toolkit::kGraphicWindows;
using toolkit::kMainWindow;
using toolkit::kPasteboardWindow;
using toolkit::kPreferencesWindow;
using toolkit::kPrinterWindow;

constexpr std::uint64_t kShortcut = platform::kControlFlag | platform::kShiftFlag;

// Whether an item can do anything now. `window` is the one in front, or the one that the item's row
// names.
using Condition = bool (*)(std::uint8_t window);

bool IsGraphic(std::uint8_t window) {
    return window < kGraphicWindows;
}

bool IsSetUp(std::uint8_t window) {
    return IsGraphic(window) && t_Windows[window].Initialized;
}

bool HasTextToCopy(std::uint8_t window) {
    if (IsGraphic(window)) return toolkit::IsUsable(t_Windows[window], toolkit::Need::TextBlock);
    return window == kPrinterWindow || window == kConsoleWindow;
}

bool HasTextToSave(std::uint8_t window) {
    return HasTextToCopy(window) || window == kPasteboardWindow;
}

bool HoldsText(std::uint8_t window) {
    const platform::TextView* const view = t_WindowTextView(window);
    return view != nullptr && !view->Text().empty();
}

bool AnyIsVisible(std::uint8_t /*window*/) {
    for (std::uint8_t n = 0; n <= kMainWindow; ++n) {
        if (IsVisible(n)) return true;
    }
    return false;
}

// An item of a menu; an empty title stands for a separator. Keys are pressed with Control and
// Shift.
struct ItemRow {
    std::string_view Title;
    std::int64_t Tag = 0;
    std::string_view Key = {};
    Condition When = nullptr;              // none: always
    std::uint8_t Of = toolkit::kNoWindow;  // the window that is asked; none: the one in front
};

constexpr ItemRow kSeparator = {""};

constexpr ItemRow kPreferences = {"Einstellungen zeigen", 207, "e"};

constexpr ItemRow kFileItems[] = {
    {"Öffnen …", 100, "o"},
    {"Sichern unter …", 101, "s", HasTextToSave},
};

constexpr ItemRow kEditItems[] = {
    {"Text kopieren", 111, "c", HasTextToCopy},
    {"Bild kopieren", 110, "b", IsSetUp},
    kSeparator,
    {"Drucker leeren", 112, "", HoldsText, kPrinterWindow},
    {"Systemkonsole leeren", 114, "", HoldsText, kConsoleWindow},
    kSeparator,
    {"Fensterfunktion ausführen", 113, "f", IsGraphic},
};

// What the platform does with the window in front; no action of the toolkit.
struct ZoomRow {
    std::string_view Title;
    std::string_view Key;
    void (*Act)(platform::Window& window);
};

constexpr ZoomRow kZoomItems[] = {
    {"Vergrößern", "+", ZoomIn},
    {"Verkleinern", "-", ZoomOut},
    {"Originalgröße", "0", [](platform::Window& window) { SetZoomPercent(window, 100); }},
    {"Einpassen", "", ZoomToFit},
};

constexpr ItemRow kWindowItems[] = {
    {"Alle Fenster ausblenden", 200, "h", AnyIsVisible},
    {"Vorderstes Fenster ausblenden", 201, "w", IsVisible},
    kSeparator,
    {"Hauptfenster zeigen", 205, "m"},
    {"Hauptfenster ausblenden", 206, "", IsVisible, kMainWindow},
    {"Einstellungen zeigen", 207},
    {"Einstellungen ausblenden", 208, "", IsVisible, kPreferencesWindow},
    {"Drucker zeigen", 209, "d"},
    {"Drucker ausblenden", 210, "", IsVisible, kPrinterWindow},
    {"Zwischenablage zeigen", 211, "z"},
    {"Zwischenablage ausblenden", 212, "", IsVisible, kPasteboardWindow},
    {"Systemkonsole zeigen", 229, "k"},
    {"Systemkonsole ausblenden", 230, "", IsVisible, kConsoleWindow},
    kSeparator,
};

// Two items for each graphic window; the first ones of a pair are reached by the function keys from
// F1 on: a digit with Control and Shift is a control code on some keyboards.
constexpr std::int64_t kFirstGraphicTag = 213;
constexpr std::string_view kFunctionKeys[] = {
    "\uF704", "\uF705", "\uF706", "\uF707", "\uF708", "\uF709", "\uF70A", "\uF70B",
};

bool CanRun(const ItemRow& row) {
    return row.When == nullptr || row.When(row.Of == toolkit::kNoWindow ? t_FrontWindow() : row.Of);
}

void Send(const MenuItem& item) {
    AppDelegate::MenuHandler(item);
}

// The item of a row as `chosen` answers it.
MenuItem ItemOf(const ItemRow& row, std::string_view title, std::function<void(MenuItem&)> chosen) {
    MenuItem item;
    item.Title = title;
    item.KeyEquivalent = row.Key;
    item.KeyEquivalentModifierMask = row.Key.empty() ? 0 : kShortcut;
    item.Tag = row.Tag;
    item.Chosen = std::move(chosen);
    item.CanBeChosen = [row](const MenuItem& /*item*/) { return CanRun(row); };
    return item;
}

void AddItem(platform::Menu& menu, const ItemRow& row) {
    row.Title.empty() ? menu.AddSeparator() : void(menu.Add(ItemOf(row, row.Title, Send)));
}

template <std::size_t Rows>
void AddMenu(std::string_view title, const ItemRow (&rows)[Rows]) {
    platform::Menu& menu = platform::Current().MenuBar->Add(title);
    for (const ItemRow& row : rows) AddItem(menu, row);
}

// An item of the application itself, which the toolkit has no action for.
MenuItem OwnItem(std::string_view title, std::string_view key, std::function<void()> chosen) {
    return ItemOf({title, 0, key}, title,
                  [chosen = std::move(chosen)](const MenuItem& /*item*/) { chosen(); });
}

void AddProgramMenu(AppDelegate& delegate, const std::string& name) {
    platform::Menu& menu = platform::Current().MenuBar->Add(name);
    menu.Add(OwnItem("Über " + name, "", ShowAbout));
    menu.AddSeparator();
    AddItem(menu, kPreferences);
    menu.AddSeparator();
    MenuItem& restart =
        menu.Add(OwnItem("Neu starten", "r", [&delegate] { delegate.TheRun().Start(); }));
    restart.CanBeChosen = [&delegate](const MenuItem& /*item*/) {
        return delegate.TheRun().IsOver();
    };
    menu.Add(OwnItem(name + " beenden", "q", [] { platform::Current().Application->Terminate(); }));
}

void AddZoomItems(platform::Menu& menu) {
    for (const ZoomRow& row : kZoomItems) {
        MenuItem& item = menu.Add(OwnItem(row.Title, row.Key, [act = row.Act] {
            if (platform::Window* const front = platform::Current().Application->ActiveWindow())
                act(*front);
        }));
        item.CanBeChosen = [](const MenuItem& /*item*/) { return IsGraphic(t_FrontWindow()); };
    }
    menu.AddSeparator();
}

void AddGraphicWindowItems(platform::Menu& menu) {
    for (std::uint8_t n = 0; n < kGraphicWindows; ++n) {
        const std::string name = toolkit::Joined("Grafikfenster ", n);
        const std::int64_t tag = kFirstGraphicTag + std::int64_t{2} * n;
        menu.Add(ItemOf({"", tag, kFunctionKeys[n], IsSetUp, n}, name + " zeigen", Send));
        menu.Add(ItemOf({"", tag + 1, "", IsVisible, n}, name + " ausblenden", Send));
    }
}

void AddWindowMenu() {
    platform::Menu& menu = platform::Current().MenuBar->Add("Fenster");
    AddZoomItems(menu);
    for (const ItemRow& row : kWindowItems) AddItem(menu, row);
    AddGraphicWindowItems(menu);
}

}  // namespace

void BuildMenus(AppDelegate& delegate) {
    AddProgramMenu(delegate, ProgramName());
    AddMenu("Ablage", kFileItems);
    AddMenu("Bearbeiten", kEditItems);
    AddWindowMenu();
}
