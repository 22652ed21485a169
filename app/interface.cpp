#include "app/interface.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "app/console_feed.h"
#include "app/menus.h"
#include "app/program_name.h"
#include "app/zoom.h"
#include "platform/platform.h"
#include "toolkit/core/output.h"
#include "toolkit/core/sounds.h"
#include "toolkit/core/text_layout.h"
#include "toolkit/core/window_numbers.h"
#include "toolkit/start/graphic_view.h"
#include "toolkit/window/host_windows.h"
#include "toolkit/window/placement.h"
#include "toolkit/window/window.h"

namespace {

using platform::FormRow;

constexpr double kTextWindowWidth = 800;  // of the content, points: room for 80 columns
constexpr double kTextWindowHeight = 480;

template <typename View>
void AddGraphicWindow(platform::View*& outlet) {
    static View& view = *new View;  // asked for pictures as long as the process lives
    outlet = platform::Current().WindowMaker->MakeGraphicWindow(view).Area;
}

void AddGraphicWindows(toolkit::Outlets& outlets) {
    AddGraphicWindow<View00>(outlets.t_View00);
    AddGraphicWindow<View01>(outlets.t_View01);
    AddGraphicWindow<View02>(outlets.t_View02);
    AddGraphicWindow<View03>(outlets.t_View03);
    AddGraphicWindow<View04>(outlets.t_View04);
    AddGraphicWindow<View05>(outlets.t_View05);
    AddGraphicWindow<View06>(outlets.t_View06);
    AddGraphicWindow<View07>(outlets.t_View07);
}

void AddTextWindow(toolkit::Outlets& outlets, std::uint8_t window, std::string_view title) {
    const toolkit::OtherWindow& row = *toolkit::OtherWindowOf(window);
    const auto made = platform::Current().WindowMaker->MakeTextWindow(
        title, kTextWindowWidth, kTextWindowHeight, *row.Layout);
    outlets.*row.Host = made.Host;
    outlets.*row.Scroll = made.Scroll;
    outlets.*row.Text = made.Text;
    if (row.Ruler != nullptr) outlets.*row.Ruler = made.Columns;
}

void AddTextWindows(toolkit::Outlets& outlets) {
    AddTextWindow(outlets, toolkit::kPasteboardWindow, "Zwischenablage");
    AddTextWindow(outlets, toolkit::kPrinterWindow, "Drucker");
    AddTextWindow(outlets, toolkit::kConsoleWindow, "Systemkonsole");
    platform::TextView* const console = outlets.SystemConsoleTextView;
    if (console != nullptr) toolkit::SetOutputListener(MakeConsoleFeed(*console));
}

FormRow Words(FormRow::Kind kind, std::string_view text) {
    FormRow row;
    row.What = kind;
    row.Title = text;
    return row;
}

FormRow Button(std::string_view title, std::function<void()> pressed,
               std::function<bool()> enabled = {}) {
    FormRow row = Words(FormRow::Kind::Button, title);
    row.Changed = [pressed = std::move(pressed)](std::int64_t /*value*/) {
        AppDelegate::ButtonHandler();
        pressed();
    };
    row.Enabled = std::move(enabled);
    return row;
}

FormRow ShowButton(std::string_view title, std::uint8_t window) {
    return Button(title, [window] { t_WindowFront(window); });
}

bool FirstWindowIsOpen() {
    const std::uint8_t first = t_FirstWindow;
    return first < toolkit::kGraphicWindows && t_Windows[first].Initialized;
}

FormRow Live(FormRow::Kind kind, std::function<std::string()> wording) {
    FormRow row = Words(kind, "");
    row.Wording = std::move(wording);
    return row;
}

std::string FirstWindowWording() {
    const std::uint8_t first = t_FirstWindow;
    return toolkit::Joined("Grafikfenster ", first < toolkit::kGraphicWindows ? first : 0,
                           " zeigen");
}

FormRow FirstWindowButton() {
    FormRow row = Button(
        "", [] { t_WindowFront(t_FirstWindow); }, FirstWindowIsOpen);
    row.Wording = FirstWindowWording;
    return row;
}

// What is left when every other window is hidden: the ways back to them, and what became of the
// program.
void AddMainWindow(AppDelegate& delegate) {
    const std::string name = ProgramName();
    delegate.MainWindow = platform::Current().WindowMaker->MakeFormWindow(
        "Hauptfenster",
        {
            Words(FormRow::Kind::Heading, name),
            Words(
                FormRow::Kind::Label,
                "Ein kleiner Heimcomputer in Fenstern. Hier kommen Sie zu allen Fenstern zurück."),
            Live(FormRow::Kind::Label, [&delegate] { return delegate.Notice(); }),
            FirstWindowButton(),
            ShowButton("Zwischenablage zeigen", toolkit::kPasteboardWindow),
            ShowButton("Drucker zeigen", toolkit::kPrinterWindow),
            ShowButton("Systemkonsole zeigen", toolkit::kConsoleWindow),
            ShowButton("Einstellungen zeigen", toolkit::kPreferencesWindow),
            Button(
                "Neu starten", [&delegate] { delegate.TheRun().Start(); },
                [&delegate] { return delegate.TheRun().IsOver(); }),
            Button(name + " beenden", [] { platform::Current().Application->Terminate(); }),
        });
}

constexpr std::int64_t kRefreshRates[] = {10, 15, 30, 60};
constexpr std::int64_t kUsualRate = 2;  // index of the rate that windows open with
static_assert(kRefreshRates[kUsualRate] == toolkit::kUsualRefreshRate);

template <typename Act>
void ForEachOpenWindow(const Act& act) {
    for (std::uint8_t n = 0; n < toolkit::kGraphicWindows; ++n) {
        if (t_Windows[n].Initialized) act(n, t_Windows[n]);
    }
}

template <std::size_t Count>
FormRow Choice(std::string_view title, const std::int64_t (&numbers)[Count], std::string_view unit,
               std::int64_t preset, std::function<void(std::int64_t)> chosen) {
    FormRow row = Words(FormRow::Kind::Choice, title);
    for (const std::int64_t number : numbers) {
        row.Options.push_back(toolkit::Joined(number, unit));
    }
    row.Value = preset;
    row.Changed = [&numbers, chosen = std::move(chosen)](std::int64_t index) {
        if (index >= 0 && index < std::ssize(numbers)) chosen(numbers[index]);
    };
    return row;
}

void SetRefreshRate(std::int64_t rate) {
    ForEachOpenWindow([rate](std::uint8_t /*n*/, t_Window& w) { w.RefreshRate = rate; });
}

template <typename Zoom>
void ZoomOpenWindows(const Zoom& zoom) {
    ForEachOpenWindow([&zoom](std::uint8_t n, const t_Window& /*w*/) {
        if (platform::Window* const host = t_WindowHostWindow(n)) zoom(*host);
    });
}

FormRow ZoomChoice() {
    const auto usual = std::find(std::begin(kZoomsInPercent), std::end(kZoomsInPercent), 100) -
                       std::begin(kZoomsInPercent);
    FormRow row = Choice(
        "Größe der offenen Grafikfenster", kZoomsInPercent, " %", usual, [](std::int64_t percent) {
            ZoomOpenWindows(
                [percent](platform::Window& window) { SetZoomPercent(window, percent); });
        });
    row.Options.emplace_back("Einpassen");
    row.Changed = [toPercent = std::move(row.Changed)](std::int64_t index) {
        index == std::ssize(kZoomsInPercent) ? ZoomOpenWindows(ZoomToFit) : toPercent(index);
    };
    return row;
}

FormRow SoundSwitch() {
    FormRow row = Words(FormRow::Kind::CheckBox, "Töne");
    row.Value = 1;
    row.Changed = [](std::int64_t on) { toolkit::SoundsOn = on != 0; };
    return row;
}

void AddPreferencesWindow(toolkit::Outlets& outlets) {
    outlets.PreferencesWindow = platform::Current().WindowMaker->MakeFormWindow(
        "Einstellungen",
        {
            Words(FormRow::Kind::Heading, "Einstellungen"),
            SoundSwitch(),
            ZoomChoice(),
            Choice("Bilder je Sekunde", kRefreshRates, "", kUsualRate, SetRefreshRate),
            Words(FormRow::Kind::Label,
                  "Gilt für die offenen Grafikfenster, bis " + ProgramName() + " endet."),
        });
}

}  // namespace

void BuildInterface(AppDelegate& delegate) {
    BuildMenus(delegate);
    AddGraphicWindows(delegate);
    AddTextWindows(delegate);
    AddMainWindow(delegate);
    AddPreferencesWindow(delegate);
}
