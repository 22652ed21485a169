#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>

#include "app/run_program.h"
#include "game/demo_program.h"
#include "platform/desktop/desktop.h"
#include "platform/platform.h"
#include "toolkit/toolkit.h"

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

void Obey(std::istringstream line) {
    std::string word;
    std::int64_t a = 0;
    std::int64_t b = 0;
    line >> word;
    if (word == "open") OpenWindow();
    if (word == "keys") TellKeys();
    if (word == "quit") t_QuitProgram(0);
    if (word == "quit-main") platform::RunOnMain([] { t_QuitProgram(0); });
    if (word == "click") t_Click();
    if (word == "exit") {
        line >> a;
        std::exit(static_cast<int>(a));
    }
    if (word == "flood") {
        for (int i = 0; i < 3000; ++i) Answer("one of many lines that nobody reads");
    }
    if (word == "frame") {
        std::string path;
        line >> path;
        return Answer(SaveFrame(path) ? "saved" : "not saved");
    }
    if (word == "pos") {
        line >> a;
        return Answer(toolkit::Joined("pos ", t_WindowPos(0, a)));
    }
    if (word == "down") return Answer(toolkit::Joined("down ", t_KeyDown ? 1 : 0));
    if (word == "scale") {
        line >> a >> b;
        t_WindowSize(0, -1, -1, a, b);
    }
    if (word == "place") {
        line >> a >> b;
        t_WindowSize(0, a, b, -1, -1);
    }
    if (word == "title") {
        line >> a;
        t_WindowTitleVisible(0, a != 0);
        t_WindowSize(0, -1, -1, -1, -1);
    }
    if (word == "front") {
        line >> a;
        t_WindowFront(static_cast<std::uint8_t>(a));
    }
    if (word == "hide") {
        line >> a;
        t_WindowVisible(static_cast<std::uint8_t>(a), false);
    }
    Answer("done " + word);
    while (word == "ask") platform::RunOnMain([] {});
    if (word == "play") PlayForEver();
    if (word == "wait") static_cast<void>(t_WaitKey(0));
    if (word == "sleep") toolkit::SleepSeconds(600);
    if (word == "draw") DrawForEver();
    while (word == "compute") static_cast<void>(toolkit::Milliseconds());
    if (word == "dialog") {
        Answer("path " + t_OpenFileDialog("Datei öffnen", "Welche Datei?", "txt"));
    }
    if (word == "save") {
        Answer("path " + t_SaveFileDialog("Brief.txt", "Datei sichern", "Wohin?", "txt, ,md"));
    }
    if (word == "pasted") {
        const std::string text = platform::AskMain([] { return t_WindowTextView(8)->Text(); });
        Answer(toolkit::Joined("pasted ", text.size(), " ", text.substr(text.rfind('\n') + 1)));
    }
    if (word == "print") {
        platform::RunOnMain([] { t_WindowTextView(9)->AppendText("Erste Zeile\nZweite Zeile\n"); });
    }
}

void Probe() {
    std::string line;
    while (std::getline(std::cin, line)) Obey(std::istringstream(line));
}

}  // namespace

int main(int argc, char** argv) {
    platform::desktop::Start(argc, argv, "Probe");
    RunProgram(Probe);
    platform::Application::Leave();
}
