#include "app/script_player.h"

#include <cmath>
#include <string>
#include <string_view>
#include <utility>

#include "platform/key_codes.h"
#include "platform/program_files.h"
#include "platform/search.h"
#include "platform/thread.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/utf8.h"

namespace {

using platform::headless::HeadlessView;

struct CharacterRow {
    char Character;
    std::int64_t KeyCode;
};

constexpr CharacterRow kCharacterKeys[] = {
    {'\t', platform::kKeyTab},       //
    {'\r', platform::kKeyReturn},    //
    {'\x1B', platform::kKeyEscape},  //
    {' ', platform::kKeySpace},      //
    {'\x7F', platform::kKeyBackspace},
};

// Digits and letters have no code of their own: the toolkit goes by the character.
std::int64_t KeyCodeOf(char character) {
    const CharacterRow* const row =
        platform::RowWith(kCharacterKeys, &CharacterRow::Character, character);
    return row == nullptr ? platform::kNoKeyCode : row->KeyCode;
}

HeadlessView* ViewOf(std::uint8_t window) {
    return dynamic_cast<HeadlessView*>(t_WindowView(window));
}

void Press(std::uint8_t window, const platform::KeyPress& press) {
    if (HeadlessView* const view = ViewOf(window)) view->Press(press);
}

// The place of a pixel of the picture as desktops tell it: whole points from the lower left, of its
// left and upper edge.
platform::MousePress At(std::uint8_t window, std::int64_t x, std::int64_t y) {
    const t_Window& w = t_Windows[window];
    return {static_cast<double>(toolkit::Plus(w.BorderWidth, x)),
            static_cast<double>(toolkit::Minus(toolkit::Plus(w.BorderHeight, w.Height), y))};
}

void ClickAt(HeadlessView& view, platform::MousePress place, bool rightButton) {
    view.MovePointer(place);
    place.Buttons = rightButton ? 2 : 1;
    view.MouseDown(place, rightButton);
    view.MouseUp(rightButton);
}

// What each step does. Main thread.
struct Doer {
    platform::headless::Headless& Desktop;
    const ScriptPlayer::Looked& Looked;

    void operator()(const korvandi::Wait& /*step*/) const {}
    void operator()(const korvandi::WaitSleeps& /*step*/) const {}
    void operator()(const korvandi::Keys& step) const {
        std::string_view rest = step.Text;
        while (!rest.empty()) {
            const std::string_view character = rest.substr(0, toolkit::DecodeFirst(rest).Length);
            Press(step.Window, {KeyCodeOf(character.front()), std::string(character), 0});
            rest.remove_prefix(character.size());
        }
    }
    void operator()(const korvandi::Key& step) const {
        Press(step.Window, {step.Code, step.Characters, step.Modifiers});
    }
    void operator()(const korvandi::Point& step) const {
        if (HeadlessView* const view = ViewOf(step.Window)) {
            view->MovePointer(At(step.Window, step.X, step.Y));
        }
    }
    void operator()(const korvandi::Click& step) const {
        if (HeadlessView* const view = ViewOf(step.Window)) {
            ClickAt(*view, At(step.Window, step.X, step.Y), step.RightButton);
        }
    }
    void operator()(const korvandi::Choose& step) const { Desktop.Choose(step.Menu, step.Item); }
    void operator()(const korvandi::AnswerOpen& step) const {
        Desktop.OpenAnswers.push_back(step.Paths);
    }
    void operator()(const korvandi::AnswerSave& step) const {
        Desktop.SaveAnswers.emplace_back(step.Path.empty() ? std::nullopt
                                                           : std::optional(step.Path));
    }
    void operator()(const korvandi::AnswerAlert& step) const {
        Desktop.AlertAnswers.push_back(step.Button);
    }
    void operator()(const korvandi::Look& step) const { Looked(step); }
    void operator()(const korvandi::LookAtScreen& step) const { Looked(step); }
};

}  // namespace

void FurnishDesktop(platform::headless::Headless& desktop) {
    const platform::ResourceFolder resources = platform::FindResourceFolder();
    desktop.ResourceFolder = resources.Path;
    desktop.ResourcesSearched = resources.Searched;
    desktop.SoundFiles = {{"click.aif", true}, {"sysbeep.aif", true}};
}

ScriptPlayer::ScriptPlayer(platform::headless::Headless& desktop, korvandi::Script script,
                           Looked looked, std::function<void()> over)
    : desktop_(desktop),
      script_(std::move(script)),
      looked_(std::move(looked)),
      whenOver_(std::move(over)) {
    desktop_.OnSleep = [this] { Slept(); };
    // Handlers wait until their step is done; the refresh loop, which never ends, for ever.
    platform::SetBackgroundStarter([this](std::function<void()> task) -> std::string {
        if (platform::OnMain() && doing_) tasks_.push_back(std::move(task));
        return {};
    });
}

std::function<void()> ScriptPlayer::Watched(std::function<void()> program) {
    return [this, run = std::move(program)] {
        program_ = std::this_thread::get_id();
        run();
    };
}

void ScriptPlayer::TakeRemainingPictures() {
    for (; next_ < script_.size(); ++next_) {
        const korvandi::Step& step = script_[next_];
        if (std::holds_alternative<korvandi::Look>(step) ||
            std::holds_alternative<korvandi::LookAtScreen>(step)) {
            looked_(step);
        }
    }
}

// The main thread sleeps, too, and other threads may.
void ScriptPlayer::Slept() {
    if (platform::OnMain() || program_ != std::this_thread::get_id() || over_) return;
    ++sleeps_;
    Act();
}

// A handler may sleep: then the steps go on from within RunTasks.
void ScriptPlayer::Act() {
    while (next_ < script_.size() && IsDue(script_[next_])) {
        const korvandi::Step& step = script_[next_++];
        platform::RunOnMain([&] { Do(step); });
        RunTasks();
    }
    if (next_ < script_.size() || over_) return;
    over_ = true;
    whenOver_();
}

bool ScriptPlayer::IsDue(const korvandi::Step& step) {
    if (const auto* const count = std::get_if<korvandi::WaitSleeps>(&step)) {
        if (sleeps_ < count->Count) return false;
    } else if (const auto* const wait = std::get_if<korvandi::Wait>(&step)) {
        const double now = desktop_.Now();
        if (!since_) since_ = now;
        if (std::llround((now - *since_) * 1000) < wait->Milliseconds) return false;
    } else {
        return true;
    }
    sleeps_ = 0;
    since_.reset();
    return true;
}

void ScriptPlayer::Do(const korvandi::Step& step) {
    doing_ = true;
    std::visit(Doer{desktop_, looked_}, step);
    doing_ = false;
}

void ScriptPlayer::RunTasks() {
    for (const std::function<void()>& task : std::exchange(tasks_, {})) task();
}
