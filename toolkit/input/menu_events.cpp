#include "toolkit/input/menu_events.h"

#include <optional>
#include <utility>
#include <vector>

#include "platform/platform.h"
#include "platform/search.h"
#include "toolkit/core/clock.h"
#include "toolkit/core/output.h"
#include "toolkit/core/sounds.h"
#include "toolkit/core/strings.h"
#include "toolkit/core/threads.h"
#include "toolkit/core/window_numbers.h"
#include "toolkit/graphics/frame.h"
#include "toolkit/input/file_dialogs.h"
#include "toolkit/text/screen.h"
#include "toolkit/window/host_windows.h"
#include "toolkit/window/placement.h"
#include "toolkit/window/window.h"

toolkit::Handler& t_MenuHandler = *new toolkit::Handler;
toolkit::Handler& t_MenuWindowProc = *new toolkit::Handler(t_SysBeep);

namespace {

using toolkit::BuiltIn;
using toolkit::PrintLine;

void PutText(std::string_view text) {
    platform::Pasteboard& board = *platform::Current().Pasteboard;
    board.Clear();
    board.SetText(text);
}

// The text view of the printer or the console; nullptr after a line and the warning.
platform::TextView* TextViewOf(std::uint8_t window) {
    platform::TextView* const view = t_WindowTextView(window);
    if (view != nullptr) return view;
    PrintLine("t_MenuEventHandler: ", toolkit::OtherWindowOf(window)->Name,
              " window is nil, resource undefined.");
    t_SysBeep();
    return nullptr;
}

// The actions. `index` is the action's entry in t_MenuActions, `argument` comes from its row below.

void OpenDialog(std::int64_t index, std::int64_t /*argument*/) {
    const t_MenuAction action = t_MenuActions[index];
    const std::string path = t_OpenFileDialog(action.Title, action.Note, action.FileTypes);
    t_MenuActions.SetFile(index, path, t_FileNameOfPath(path));
}

void SaveDialog(std::int64_t index, std::int64_t /*argument*/) {
    const t_MenuAction action = t_MenuActions[index];
    const std::string path =
        t_SaveFileDialog(action.FileName, action.Title, action.Note, action.FileTypes);
    t_MenuActions.SetFile(index, path, t_FileNameOfPath(path));
}

void CopyPicture(std::int64_t /*index*/, std::int64_t /*argument*/) {
    const std::optional<platform::Picture> picture = t_WindowSnapshot(t_FrontWindow());
    if (!picture) return t_SysBeep();
    platform::Current().Pasteboard->Clear();
    platform::Current().Pasteboard->SetPicture(*picture);
}

void CopyText(std::int64_t /*index*/, std::int64_t /*argument*/) {
    const std::uint8_t w = t_FrontWindow();
    if (w < toolkit::kGraphicWindows) return PutText(t_ExportText(t_GetScreen(w, "\r")));
    if (w != toolkit::kPrinterWindow && w != toolkit::kConsoleWindow) return t_SysBeep();
    if (const platform::TextView* const view = TextViewOf(w); view != nullptr) {
        PutText(view->Text());
    }
}

void ClearText(std::int64_t /*index*/, std::int64_t window) {
    platform::TextView* const view = TextViewOf(static_cast<std::uint8_t>(window));
    if (view == nullptr) return;
    view->SetText("");
    view->SetNeedsDisplay();
}

void RunWindowProc(std::int64_t /*index*/, std::int64_t /*argument*/) {
    t_FrontWindow() < toolkit::kGraphicWindows ? t_MenuWindowProc() : t_SysBeep();
}

void HideAll(std::int64_t /*index*/, std::int64_t /*argument*/) {
    for (std::uint8_t n = 0; n <= toolkit::kMainWindow; ++n) t_WindowVisible(n, false);
}

void HideFront(std::int64_t /*index*/, std::int64_t /*argument*/) {
    t_WindowVisible(t_FrontWindow(), false);
}

void Show(std::int64_t /*index*/, std::int64_t window) {
    t_WindowFront(static_cast<std::uint8_t>(window));
}

void Hide(std::int64_t /*index*/, std::int64_t window) {
    t_WindowVisible(static_cast<std::uint8_t>(window), false);
}

struct ActionRow {
    BuiltIn Action;
    void (*Run)(std::int64_t index, std::int64_t argument);
    std::int64_t Argument = 0;
};

constexpr ActionRow kActions[] = {
    {BuiltIn::OpenFile, OpenDialog},
    {BuiltIn::SaveFile, SaveDialog},
    {BuiltIn::CopyPicture, CopyPicture},
    {BuiltIn::CopyText, CopyText},
    {BuiltIn::ClearPrinter, ClearText, toolkit::kPrinterWindow},
    {BuiltIn::RunWindowProc, RunWindowProc},
    {BuiltIn::ClearConsole, ClearText, toolkit::kConsoleWindow},
    {BuiltIn::HideAll, HideAll},
    {BuiltIn::HideFront, HideFront},
    {BuiltIn::ShowMain, Show, toolkit::kMainWindow},
    {BuiltIn::HideMain, Hide, toolkit::kMainWindow},
    {BuiltIn::ShowPreferences, Show, toolkit::kPreferencesWindow},
    {BuiltIn::HidePreferences, Hide, toolkit::kPreferencesWindow},
    {BuiltIn::ShowPrinter, Show, toolkit::kPrinterWindow},
    {BuiltIn::HidePrinter, Hide, toolkit::kPrinterWindow},
    {BuiltIn::ShowPasteboard, Show, toolkit::kPasteboardWindow},
    {BuiltIn::HidePasteboard, Hide, toolkit::kPasteboardWindow},
    {BuiltIn::ShowConsole, Show, toolkit::kConsoleWindow},
    {BuiltIn::HideConsole, Hide, toolkit::kConsoleWindow},
};

bool IsGraphicAction(BuiltIn action) {
    return action >= BuiltIn::ShowGraphic0 && action <= BuiltIn::HideGraphic7;
}

void RunGraphicAction(BuiltIn action) {
    const std::int64_t distance = Number(action) - Number(BuiltIn::ShowGraphic0);
    const auto n = static_cast<std::uint8_t>(distance / 2);
    if (!toolkit::IsUsable(t_Windows[n], toolkit::Need::SetUp)) {
        toolkit::PrintNotInitialized("t_MenuEventHandler", n);
        t_SysBeep();
    } else if (action == toolkit::ShowGraphic(n)) {
        t_WindowFront(n);
    } else {
        t_WindowVisible(n, false);
    }
}

void RunAction(std::int64_t index) {
    const BuiltIn action{t_MenuActions[index].Action};
    if (IsGraphicAction(action)) return RunGraphicAction(action);
    const auto* const row = platform::RowWith(kActions, &ActionRow::Action, action);
    if (row != nullptr) row->Run(index, row->Argument);
}

t_MenuEvent EventOf(const platform::MenuItem& item) {
    t_MenuEvent event;
    if (item.Owner == nullptr) return event;
    event.Kind = 3;
    event.MenuTitle = item.Owner->Title();
    event.ItemTitle = item.Title;
    event.ItemKeyChar = item.KeyEquivalent;
    event.ItemKeyMods = item.KeyEquivalentModifierMask;
    event.ItemKeyAsc = t_CharCode(item.KeyEquivalent);
    event.ItemAction = item.Tag;
    event.Time = toolkit::Milliseconds();
    return event;
}

}  // namespace

void t_MenuEventHandler(const platform::MenuItem& item) {
    t_MenuEvent event = EventOf(item);
    const std::int64_t index = t_MenuActionIndex(event.ItemAction);
    if (index >= 0) RunAction(index);
    t_MenuEventQueue.Append(std::move(event));
    if (index >= 0) return;
    t_RunInBackground([] {
        if (t_ThreadNumber() >= 3) platform::NameThread("t_EventMenu");
        t_MenuHandler();
    });
}
