#include "toolkit/start/start_up.h"

#include <algorithm>
#include <string_view>

#include "platform/platform.h"
#include "toolkit/core/clock.h"
#include "toolkit/core/memory.h"
#include "toolkit/core/outlets.h"
#include "toolkit/core/output.h"
#include "toolkit/core/threads.h"
#include "toolkit/events/menu.h"
#include "toolkit/input/menu_bar.h"
#include "toolkit/window/window.h"

namespace {

using toolkit::BuiltIn;
using toolkit::PrintLine;

// Items that a desktop adds to the menus by itself and that do nothing here.
constexpr std::string_view kForeignEditItems[] = {
    "Special Characters…", "Emoji & Symbols",  "Emoji & Symbole",
    "Start Dictation…",    "Diktat starten …",
};
constexpr std::string_view kForeignWindowItems[] = {
    "Tile Window to Left of Screen",
    "Tile Window to Right of Screen",
    "Vollbildmodus",
};

constexpr std::string_view kEditMenus[] = {"Bearbeiten", "Edit"};
constexpr std::string_view kWindowMenus[] = {"Fenster", "Window"};

struct TagRange {
    std::int64_t First;
    std::int64_t Last;
};

// The first range has a number behind the last action that is kept free.
constexpr TagRange kBuiltInTags[] = {
    {toolkit::Number(BuiltIn::HideAll), toolkit::Number(BuiltIn::HideConsole) + 1},
    {toolkit::Number(BuiltIn::CopyPicture), toolkit::Number(BuiltIn::ClearConsole)},
};

void CreateMemory() {
    t_HighMemory = toolkit::kHighestAddress;
    t_Memory.Create();
    t_Windows.fill(t_Window());
}

void AddBuiltInActions() {
    for (const TagRange& range : kBuiltInTags) {
        for (std::int64_t tag = range.First; tag <= range.Last; ++tag) {
            t_MenuAction action;
            action.Tag = action.Action = tag;
            t_MenuActions.push_back(action);
        }
    }
}

void CleanEditMenus() {
    for (const std::string_view title : kForeignEditItems) {
        for (const std::string_view menu : kEditMenus) {
            const std::int64_t position = t_MenuItemIndex(menu, title);
            if (position >= 0) t_MenuItemDelete(menu, position);
        }
    }
    // Not left with a separator at the end.
    for (const std::string_view menu : kEditMenus) {
        if (t_MenuItemTitle(menu, toolkit::kLastItem).empty()) {
            t_MenuItemDelete(menu, toolkit::kLastItem);
        }
    }
}

void CleanWindowMenus() {
    for (const std::string_view title : kForeignWindowItems) {
        for (const std::string_view menu : kWindowMenus) {
            const std::int64_t position = t_MenuItemIndex(menu, title);
            if (position < 0) continue;
            PrintLine("*** Found ", menu, " Menu Item ", title);
            t_MenuItemDelete(menu, position);
        }
    }
}

void PreparePasteboardView() {
    const toolkit::Outlets* const outlets = t_AppDelegate;
    if (outlets == nullptr || outlets->PasteboardTextView == nullptr) return;
    platform::TextView& view = *outlets->PasteboardTextView;
    view.SetAutomaticSubstitutions(false);
    view.SetFont("Menlo", 12);
    view.SetText("");
    view.SetNeedsDisplay();
}

}  // namespace

void t_InitMemory() {
    if (t_MemoryStarted.Exchange(true)) return;
    PrintLine("t_InitMemory: Start.");
    if (t_ThreadNumber() == 2) platform::NameThread("Main Program");
    CreateMemory();
    AddBuiltInActions();
    platform::RunOnMain([] {
        CleanEditMenus();
        CleanWindowMenus();
        PreparePasteboardView();
    });
    t_ToolsReady = true;
    PrintLine("t_InitMemory: End.");
}

void toolkit::WaitForTools() {
    t_InitMemory();
    while (!t_ToolsReady) WaitMilliseconds(10);
}
