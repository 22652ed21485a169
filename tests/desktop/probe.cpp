#include <QtGui/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenuBar>
#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>

#include "game/demo_program.h"
#include "korvandi.h"
#include "platform/desktop/desktop.h"
#include "platform/platform.h"

// A windowed program for the desktop tests: does what the lines of its standard input say, on the
// program thread, and answers each with a line.

namespace {

void Answer(const std::string& text) {
    toolkit::PrintLine("probe: ", text);
}

void OpenWindow() {
    t_InitWindow(0, 24, 20, 10, 16, "MenloRegular 16x32.font");
    t_WindowCenter(0);
    t_WindowFront(0);
    for (std::int64_t color = 0; color < 16; ++color) {
        t_Color(0, color);
        t_Print(0, "Äß# ");
    }
}

// The picture as the memory holds it.
bool SaveFrame(const std::string& path) {
    t_WindowUpdate(0, false);
    return platform::AskMain([&] {
        const auto picture = t_WindowSnapshot(0);
        return picture && platform::desktop::SavePicture(*picture, path);
    });
}

// Where the title of a menu stands in the windows, from the upper left.
std::string PlaceOfMenu(const std::string& title) {
    for (const QWidget* const window : QApplication::topLevelWidgets()) {
        const auto* const bar = window->findChild<QMenuBar*>();
        if (bar == nullptr || !bar->isVisible()) continue;
        for (QAction* const menu : bar->actions()) {
            if (menu->text().remove('&').toStdString() != title) continue;
            const QPoint place = bar->mapTo(window, bar->actionGeometry(menu).center());
            return toolkit::Joined(place.x(), " ", place.y());
        }
    }
    return "is not there";
}

void TellKeys() {
    Answer("ready for keys");
    while (t_CurrentEvent.Value != 27) {
        static_cast<void>(t_WaitKey(0));
        Answer(toolkit::Joined("key ", t_CurrentEvent.Value, " code ", t_CurrentEvent.Index,
                               " mods ", t_CurrentEvent.Mods));
    }
    t_CurrentEvent = t_Event();
}

[[noreturn]] void DrawForEver() {
    while (true) t_Print(0, "Korvandi ");
}

// Tells every few seconds how long the longest time between two frames of the first window was
// while the window was shown.
void WatchFrames() {
    constexpr std::int64_t kEvery = 5000;
    std::int64_t longest = 0;
    std::int64_t frames = 0;
    std::int64_t before = t_Windows[0].UpdateFinished;
    std::int64_t since = toolkit::Milliseconds();
    for (std::int64_t told = since;; toolkit::SleepMilliseconds(1)) {
        const std::int64_t now = toolkit::Milliseconds();
        const std::int64_t finished = t_Windows[0].UpdateFinished;
        if (t_Windows[0].Visible) longest = std::max(longest, now - since);
        if (finished != before) ++frames;
        if (finished != before || !t_Windows[0].Visible) since = now;
        before = finished;
        if (now - told < kEvery) continue;
        Answer(toolkit::Joined("frames ", frames, " longest ", longest));
        told = now;
    }
}

// The game, again and again.
[[noreturn]] void PlayForEver() {
    t_RunInBackground(WatchFrames);
    while (true) {
        std::atomic<bool> ended = false;
        startprocess(
            [&ended] {
                const std::unique_ptr<std::atomic<bool>, void (*)(std::atomic<bool>*)> atEnd(
                    &ended, [](std::atomic<bool>* flag) { *flag = true; });
                DemoProgram();
            },
            0x10'0000);
        while (!ended) toolkit::SleepMilliseconds(5);
    }
}

void AnswerDialog() {
    Answer("path " + t_OpenFileDialog("Datei öffnen", "Welche Datei?", "txt"));
}

void AnswerSaveDialog() {
    Answer("path " + t_SaveFileDialog("Brief.txt", "Datei sichern", "Wohin?", "txt, ,md"));
}

void TellPasted() {
    const std::string text = platform::AskMain([] { return t_WindowTextView(8)->Text(); });
    Answer(toolkit::Joined("pasted ", text.size(), " ", text.substr(text.rfind('\n') + 1)));
}

void PrintTwoLines() {
    platform::RunOnMain([] { t_WindowTextView(9)->AppendText("Erste Zeile\nZweite Zeile\n"); });
}

void Flood() {
    for (int i = 0; i < 3000; ++i) Answer("one of many lines that nobody reads");
}

[[noreturn]] void AskForEver() {
    while (true) platform::RunOnMain([] {});
}

[[noreturn]] void ComputeForEver() {
    while (true) static_cast<void>(toolkit::Milliseconds());
}

template <typename Number = std::int64_t>
Number Next(std::istream& line) {
    std::int64_t number = 0;
    line >> number;
    return static_cast<Number>(number);
}

void AnswerFrame(std::istream& line) {
    std::string path;
    line >> path;
    Answer(SaveFrame(path) ? "saved" : "not saved");
}

void AnswerMenu(std::istream& line) {
    std::string title;
    line >> title;
    Answer("menu " + platform::AskMain([&] { return PlaceOfMenu(title); }));
}

void AnswerPointer() {
    const korvandi::MouseState mouse = korvandi::Mouse(0);
    Answer(toolkit::Joined(mouse.Inside ? "inside " : "outside ", mouse.X, " ", mouse.Y, " ",
                           mouse.Buttons));
}

void Scale(std::istream& line) {
    const std::int64_t width = Next(line);
    t_WindowSize(0, -1, -1, width, Next(line));
}

void PlaceAt(std::istream& line) {
    const std::int64_t x = Next(line);
    t_WindowSize(0, x, Next(line), -1, -1);
}

void ShowTitle(std::istream& line) {
    t_WindowTitleVisible(0, Next(line) != 0);
    t_WindowSize(0, -1, -1, -1, -1);
}

// When a command runs: before or after the line that it is done, or instead of that line.
enum class When { Before, After, Instead };

struct CommandRow {
    std::string_view Word;
    When Runs;
    void (*Run)(std::istream& line);
};

// A command that takes nothing from its line.
template <auto Act>
void Just(std::istream& /*line*/) {
    Act();
}

constexpr CommandRow kCommands[] = {
    {"open", When::Before, Just<OpenWindow>},
    {"keys", When::Before, Just<TellKeys>},
    {"quit", When::Before, [](auto& /*line*/) { t_QuitProgram(0); }},
    {"quit-main", When::Before,
     [](auto& /*line*/) { platform::RunOnMain([] { t_QuitProgram(0); }); }},
    {"click", When::Before, Just<t_Click>},
    {"exit", When::Before, [](auto& line) { std::exit(Next<int>(line)); }},
    {"flood", When::Before, Just<Flood>},
    {"scale", When::Before, Scale},
    {"place", When::Before, PlaceAt},
    {"title", When::Before, ShowTitle},
    {"front", When::Before, [](auto& line) { t_WindowFront(Next<std::uint8_t>(line)); }},
    {"hide", When::Before, [](auto& line) { t_WindowVisible(Next<std::uint8_t>(line), false); }},
    {"frame", When::Instead, AnswerFrame},
    {"pos", When::Instead,
     [](auto& line) { Answer(toolkit::Joined("pos ", t_WindowPos(0, Next(line)))); }},
    {"menu", When::Instead, AnswerMenu},
    {"pointer", When::Instead, Just<AnswerPointer>},
    {"down", When::Instead,
     [](auto& /*line*/) { Answer(toolkit::Joined("down ", t_KeyDown ? 1 : 0)); }},
    {"ask", When::After, Just<AskForEver>},
    {"play", When::After, Just<PlayForEver>},
    {"wait", When::After, [](auto& /*line*/) { static_cast<void>(t_WaitKey(0)); }},
    {"sleep", When::After, [](auto& /*line*/) { korvandi::Pause(600'000); }},
    {"draw", When::After, Just<DrawForEver>},
    {"compute", When::After, Just<ComputeForEver>},
    {"dialog", When::After, Just<AnswerDialog>},
    {"save", When::After, Just<AnswerSaveDialog>},
    {"pasted", When::After, Just<TellPasted>},
    {"print", When::After, Just<PrintTwoLines>},
};

void Obey(std::istringstream line) {
    std::string word;
    line >> word;
    const auto* const row = std::ranges::find(kCommands, word, &CommandRow::Word);
    const bool known = row != std::end(kCommands);
    if (known && row->Runs != When::After) row->Run(line);
    if (!known || row->Runs != When::Instead) Answer("done " + word);
    if (known && row->Runs == When::After) row->Run(line);
}

void Probe() {
    std::string line;
    while (std::getline(std::cin, line)) Obey(std::istringstream(line));
}

}  // namespace

int main(int argc, char** argv) {
    return korvandi::Run(argc, argv, "Probe", Probe);
}
