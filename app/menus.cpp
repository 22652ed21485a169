#include "app/menus.h"

#include <functional>
#include <string>
#include <string_view>

#include "app/app_delegate.h"
#include "app/program_name.h"
#include "platform/platform.h"
#include "toolkit/core/output.h"

namespace {

using platform::MenuItem;

constexpr std::uint64_t kShortcut = platform::kControlFlag | platform::kShiftFlag;

// An item of a menu; an empty title stands for a separator. Keys are pressed with Control and
// Shift.
struct ItemRow {
    std::string_view Title;
    std::int64_t Tag;
    std::string_view Key;
};

// Between the items that bear the program's name.
constexpr ItemRow kProgramItems[] = {
    {"Einstellungen …", 207, ""},
    {"", 0, ""},
    {"Alle Fenster ausblenden", 200, "h"},
};

constexpr ItemRow kFileItems[] = {
    {"Öffnen …", 100, "o"},
    {"Sichern unter …", 101, "s"},
    {"", 0, ""},
    {"Fenster schließen", 201, "w"},
};

constexpr ItemRow kEditItems[] = {
    {"Text kopieren", 111, "c"},
    {"Bild kopieren", 110, "b"},
    {"", 0, ""},
    {"Drucker leeren", 112, ""},
    {"Konsole leeren", 114, ""},
    {"", 0, ""},
    {"Fensterfunktion ausführen", 113, "f"},
};

constexpr ItemRow kWindowItems[] = {
    {"Alle ausblenden", 200, ""},
    {"Vorderstes ausblenden", 201, ""},
    {"", 0, ""},
    {"Hauptfenster zeigen", 205, "m"},
    {"Hauptfenster ausblenden", 206, ""},
    {"Einstellungen zeigen", 207, "e"},
    {"Einstellungen ausblenden", 208, ""},
    {"Drucker zeigen", 209, "d"},
    {"Drucker ausblenden", 210, ""},
    {"Zwischenablage zeigen", 211, "z"},
    {"Zwischenablage ausblenden", 212, ""},
    {"Systemkonsole zeigen", 229, "k"},
    {"Systemkonsole ausblenden", 230, ""},
    {"", 0, ""},
};

// Two items for each graphic window; the first ones of a pair are reached by the window's digit.
constexpr std::int64_t kFirstGraphicTag = 213;
constexpr int kGraphicWindows = 8;

void Send(const MenuItem& item) {
    AppDelegate::MenuHandler(item);
}

// An item that `chosen` answers; its key is pressed with Control and Shift.
MenuItem NewItem(std::string_view title, std::int64_t tag, std::string_view key,
                 std::function<void(MenuItem&)> chosen) {
    return {nullptr, std::string(title), false, std::string(key), key.empty() ? 0 : kShortcut,
            tag,     std::move(chosen)};
}

void AddItem(platform::Menu& menu, std::string_view title, std::int64_t tag, std::string_view key) {
    menu.Add(NewItem(title, tag, key, Send));
}

template <std::size_t Rows>
void AddItems(platform::Menu& menu, const ItemRow (&rows)[Rows]) {
    for (const ItemRow& row : rows) {
        row.Title.empty() ? menu.AddSeparator() : AddItem(menu, row.Title, row.Tag, row.Key);
    }
}

template <std::size_t Rows>
platform::Menu& AddMenu(std::string_view title, const ItemRow (&rows)[Rows]) {
    platform::Menu& menu = platform::Current().Menus->Add(title);
    AddItems(menu, rows);
    return menu;
}

void AddProgramMenu(const std::string& name) {
    platform::Menu& menu = platform::Current().Menus->Add(name);
    AddItem(menu, "Über " + name, 205, "");
    menu.AddSeparator();
    AddItems(menu, kProgramItems);
    menu.AddSeparator();
    menu.Add(NewItem(name + " beenden", 0, "q",
                     [](const MenuItem& /*item*/) { platform::Current().App->Terminate(); }));
}

void AddGraphicWindows(platform::Menu& menu) {
    for (int n = 0; n < kGraphicWindows; ++n) {
        const std::int64_t tag = kFirstGraphicTag + std::int64_t{2} * n;
        AddItem(menu, toolkit::Joined("Grafikfenster ", n, " zeigen"), tag, toolkit::Joined(n));
        AddItem(menu, toolkit::Joined("Grafikfenster ", n, " ausblenden"), tag + 1, "");
    }
}

}  // namespace

void BuildMenus() {
    AddProgramMenu(ProgramName());
    AddMenu("Ablage", kFileItems);
    AddMenu("Bearbeiten", kEditItems);
    AddGraphicWindows(AddMenu("Fenster", kWindowItems));
}
