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
#include "toolkit/events/menu.h"
#include "toolkit/window/host_windows.h"
#include "toolkit/window/window.h"

namespace {

using platform::MenuItem;
using toolkit::BuiltIn;
using toolkit::IsVisible;
using toolkit::kConsoleWindow;
using toolkit::kGraphicWindows;
using toolkit::kMainWindow;
using toolkit::kPasteboardWindow;
using toolkit::kPreferencesWindow;
using toolkit::kPrinterWindow;
using enum toolkit::BuiltIn;

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
    BuiltIn Action = None;
    std::string_view Key = {};
    Condition When = nullptr;              // none: always
    std::uint8_t Of = toolkit::kNoWindow;  // the window that is asked; none: the one in front
};

constexpr ItemRow kSeparator = {""};

constexpr ItemRow kPreferences = {"Einstellungen zeigen", ShowPreferences, "e"};

constexpr ItemRow kFileItems[] = {
    {"Öffnen …", OpenFile, "o"},
    {"Sichern unter …", SaveFile, "s", HasTextToSave},
};

constexpr ItemRow kEditItems[] = {
    {"Text kopieren", CopyText, "c", HasTextToCopy},
    {"Bild kopieren", CopyPicture, "b", IsSetUp},
    kSeparator,
    {"Drucker leeren", ClearPrinter, "", HoldsText, kPrinterWindow},
    {"Systemkonsole leeren", ClearConsole, "", HoldsText, kConsoleWindow},
    kSeparator,
    {"Fensterfunktion ausführen", RunWindowProc, "f", IsGraphic},
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
    {"Alle Fenster ausblenden", HideAll, "h", AnyIsVisible},
    {"Vorderstes Fenster ausblenden", HideFront, "w", IsVisible},
    kSeparator,
    {"Hauptfenster zeigen", ShowMain, "m"},
    {"Hauptfenster ausblenden", HideMain, "", IsVisible, kMainWindow},
    {"Einstellungen zeigen", ShowPreferences},
    {"Einstellungen ausblenden", HidePreferences, "", IsVisible, kPreferencesWindow},
    {"Drucker zeigen", ShowPrinter, "d"},
    {"Drucker ausblenden", HidePrinter, "", IsVisible, kPrinterWindow},
    {"Zwischenablage zeigen", ShowPasteboard, "z"},
    {"Zwischenablage ausblenden", HidePasteboard, "", IsVisible, kPasteboardWindow},
    {"Systemkonsole zeigen", ShowConsole, "k"},
    {"Systemkonsole ausblenden", HideConsole, "", IsVisible, kConsoleWindow},
    kSeparator,
};

// Two items for each graphic window; the first ones of a pair are reached by the function keys from
// F1 on: a digit with Control and Shift is a control code on some keyboards.
constexpr std::string_view kFunctionKeys[] = {
    "\uF704", "\uF705", "\uF706", "\uF707", "\uF708", "\uF709", "\uF70A", "\uF70B",
};

bool CanBeDone(Condition condition, std::uint8_t of) {
    return condition == nullptr || condition(of == toolkit::kNoWindow ? t_FrontWindow() : of);
}

void Send(const MenuItem& item) {
    AppDelegate::MenuHandler(item);
}

// The item of a row as `chosen` answers it.
MenuItem ItemOf(const ItemRow& row, std::function<void(MenuItem&)> chosen) {
    MenuItem item;
    item.Title = row.Title;
    item.KeyEquivalent = row.Key;
    item.KeyEquivalentModifierMask = row.Key.empty() ? 0 : kShortcut;
    item.Tag = Number(row.Action);
    item.Chosen = std::move(chosen);
    item.CanBeChosen = [condition = row.When, of = row.Of](const MenuItem& /*item*/) {
        return CanBeDone(condition, of);
    };
    return item;
}

void AddItem(platform::Menu& menu, const ItemRow& row) {
    row.Title.empty() ? menu.AddSeparator() : void(menu.Add(ItemOf(row, Send)));
}

template <std::size_t Rows>
void AddMenu(std::string_view title, const ItemRow (&rows)[Rows]) {
    platform::Menu& menu = platform::Current().MenuBar->Add(title);
    for (const ItemRow& row : rows) AddItem(menu, row);
}

// An item of the application itself, which the toolkit has no action for.
MenuItem OwnItem(std::string_view title, std::string_view key, std::function<void()> chosen) {
    return ItemOf({title, None, key},
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
        AddItem(menu, {name + " zeigen", toolkit::ShowGraphic(n), kFunctionKeys[n], IsSetUp, n});
        AddItem(menu, {name + " ausblenden", toolkit::HideGraphic(n), "", IsVisible, n});
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
