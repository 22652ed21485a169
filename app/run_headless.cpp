#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "app/file_commands.h"
#include "app/run_program.h"
#include "app/screen_picture.h"
#include "app/script_player.h"
#include "korvandi_headless.h"
#include "platform/thread.h"

namespace {

using platform::headless::Headless;

// Never destroyed: threads of the program may still use it when the process ends.
template <typename Thing>
Thing& Kept(std::unique_ptr<Thing> thing) {
    static auto& kept = *new std::vector<std::unique_ptr<Thing>>;
    return *kept.emplace_back(std::move(thing));
}

// Keeps the pictures that a script asks for.
struct Photographer {
    const Headless& Desktop;
    std::map<std::string, platform::Picture>& Pictures;

    void Keep(const std::string& name, std::optional<platform::Picture> picture) const {
        if (picture) Pictures.insert_or_assign(name, *std::move(picture));
    }
    void operator()(const korvandi::Look& look) const {
        Keep(look.Name, t_WindowSnapshot(look.Window));
    }
    void operator()(const korvandi::LookAtScreen& look) const {
        Keep(look.Name, ScreenPicture(Desktop));
    }
    void operator()(const auto& /*step*/) const {}
};

std::string TextOf(std::uint8_t window) {
    const platform::TextView* const view = t_WindowTextView(window);
    return view == nullptr ? std::string() : view->Text();
}

}  // namespace

korvandi::Outcome korvandi::RunHeadless(std::function<void()> program, const Script& script) {
    Headless& desktop = Kept(std::make_unique<Headless>());
    FurnishDesktop(desktop);
    t_MenuHandler = RunFileCommand;
    Outcome outcome;
    const auto keepPicture = [&](const Step& look) {
        std::visit(Photographer{desktop, outcome.Pictures}, look);
    };
    ScriptPlayer& player =
        Kept(std::make_unique<ScriptPlayer>(desktop, script, keepPicture, platform::EndThread));
    const auto afterTheLaunch = [&program] {
        platform::RunOnMain([] {});
        program();
    };
    RunProgram(player.Watched(afterTheLaunch), [&] {
        outcome.Ended = player.ProgramWasFirst();
        player.TakeRemainingPictures();
        outcome.Printer = TextOf(toolkit::kPrinterWindow);
        outcome.Console = TextOf(toolkit::kConsoleWindow);
        desktop.Terminate();
    });
    outcome.Output = desktop.Printed();
    outcome.Clipboard = desktop.BoardText;
    return outcome;
}
