#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "toolkit/core/shared.h"
#include "toolkit/events/event_queue.h"

// Chosen menu items: recorded for the program, and their built-in actions.

/// One chosen item.
struct t_MenuEvent {
    std::int64_t Kind = 0;  // 3; 0, and all else empty, for an item that belongs to no menu
    std::string MenuTitle;
    std::string ItemTitle;
    std::string ItemKeyChar;        // key equivalent, may be empty
    std::uint64_t ItemKeyMods = 0;  // its modifiers, bits as in platform/input.h
    std::int64_t ItemKeyAsc = 0;    // code of ItemKeyChar
    std::int64_t ItemAction = 0;    // the item's tag
    std::int64_t Time = 0;          // milliseconds of the platform's absolute time

    bool operator==(const t_MenuEvent&) const = default;
};

/// What an item with a certain tag does.
struct t_MenuAction {
    std::int64_t Tag = 0;
    std::int64_t Action = 0;  // number of the built-in action, see toolkit::BuiltIn
    std::string Title;        // of the dialogs, actions 100 (open) and 101 (save)
    std::string Note;
    std::string FileName;   // preset of the save dialog; after a dialog the chosen file's name
    std::string FileTypes;  // separated by commas
    std::string FilePath;   // after a dialog the chosen path, empty when cancelled

    bool operator==(const t_MenuAction&) const = default;
};

namespace toolkit {

/// The numbers of the built-in actions; what each does stands at t_MenuEventHandler. Items of the
/// menus have the same numbers as tags.
enum class BuiltIn : std::int64_t {
    None = 0,
    OpenFile = 100,
    SaveFile = 101,
    CopyPicture = 110,
    CopyText = 111,
    ClearPrinter = 112,
    RunWindowProc = 113,
    ClearConsole = 114,
    HideAll = 200,
    HideFront = 201,
    ShowMain = 205,
    HideMain = 206,
    ShowPreferences = 207,
    HidePreferences = 208,
    ShowPrinter = 209,
    HidePrinter = 210,
    ShowPasteboard = 211,
    HidePasteboard = 212,
    ShowGraphic0 = 213,  // two for each graphic window
    HideGraphic0 = 214,
    HideGraphic7 = 228,
    ShowConsole = 229,
    HideConsole = 230,
};

[[nodiscard]] constexpr std::int64_t Number(BuiltIn action) {
    return static_cast<std::int64_t>(action);
}

/// What shows, and what hides, graphic window `window` (0 to 7).
[[nodiscard]] constexpr BuiltIn ShowGraphic(std::uint8_t window) {
    return BuiltIn{Number(BuiltIn::ShowGraphic0) + std::int64_t{2} * window};
}
[[nodiscard]] constexpr BuiltIn HideGraphic(std::uint8_t window) {
    return BuiltIn{Number(BuiltIn::HideGraphic0) + std::int64_t{2} * window};
}

/// The menu actions, in the order in which they were added, indexed from 0. A program adds its own;
/// the main thread reads them and stores what a dialog gave. Any thread; every operation is one
/// step.
class MenuActionList {
  public:
    void push_back(t_MenuAction action);
    [[nodiscard]] std::int64_t size() const;
    /// A copy of the entry at `index`; an empty one where there is none. Constant, so that what
    /// would only change the copy does not compile: Change changes the entry.
    // NOLINTNEXTLINE(readability-const-return-type)
    [[nodiscard]] const t_MenuAction operator[](std::int64_t index) const;
    /// Has `change` change the entry at `index`; nothing where there is none. It must not use the
    /// list: t_MenuActions.Change(0, [](t_MenuAction& action) { action.Title = "Laden"; });
    void Change(std::int64_t index, const std::function<void(t_MenuAction& action)>& change);
    /// Removes the entry at `index`; nothing where there is none.
    void erase(std::int64_t index);
    /// Index of the first entry with this tag; -1 for tag 0 and when there is none.
    [[nodiscard]] std::int64_t IndexOf(std::int64_t tag) const;
    void SetFile(std::int64_t index, std::string path, std::string name);
    void Clear();

  private:
    [[nodiscard]] bool Has(std::int64_t index) const {
        return index >= 0 && index < std::ssize(actions_);
    }

    mutable std::mutex mutex_;
    std::vector<t_MenuAction> actions_;
};

}  // namespace toolkit

extern toolkit::MenuActionList& t_MenuActions;

/// Index of the first entry of t_MenuActions with this tag; -1 for tag 0 and without an entry. Any
/// thread.
[[nodiscard]] std::int64_t t_MenuActionIndex(std::int64_t tag);

/// Chosen items waiting for the program; every choice is added, only the program takes any.
extern toolkit::EventQueue<t_MenuEvent>& t_MenuEventQueue;
extern constinit toolkit::Shared<bool> t_MenuEventPending;
