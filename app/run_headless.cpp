#include <memory>
#include <utility>
#include <vector>

#include "app/file_commands.h"
#include "app/run_program.h"
#include "app/script_player.h"
#include "korvandi_headless.h"
#include "platform/program_files.h"
#include "platform/thread.h"

namespace {

using platform::headless::Headless;

// Never destroyed: threads of the program may still use it when the process ends.
template <typename Thing>
Thing& Kept(std::unique_ptr<Thing> thing) {
    static auto& kept = *new std::vector<std::unique_ptr<Thing>>;
    return *kept.emplace_back(std::move(thing));
}

Headless& NewDesktop() {
    Headless& desktop = Kept(std::make_unique<Headless>());
    const platform::ResourceFolder resources = platform::FindResourceFolder();
    desktop.ResourceFolder = resources.Path;
    desktop.ResourcesSearched = resources.Searched;
    desktop.SoundFiles = {{"click.aif", true}, {"sysbeep.aif", true}};
    return desktop;
}

std::string TextOf(std::uint8_t window) {
    const platform::TextView* const view = t_WindowTextView(window);
    return view == nullptr ? std::string() : view->Text();
}

}  // namespace

korvandi::Outcome korvandi::RunHeadless(std::function<void()> program, const Script& script) {
    Headless& desktop = NewDesktop();
    t_MenuHandler = RunFileCommand;
    Outcome outcome;
    const auto keepPicture = [&outcome](const Look& look) {
        auto picture = t_WindowSnapshot(look.Window);
        if (picture) outcome.Pictures.insert_or_assign(look.Name, *std::move(picture));
    };
    ScriptPlayer& player =
        Kept(std::make_unique<ScriptPlayer>(desktop, script, keepPicture, platform::EndThread));
    const auto afterTheLaunch = [&program] {
        platform::RunOnMain([] {});
        program();
    };
    RunProgram(player.Watched(afterTheLaunch), [&] {
        outcome.Ended = player.ProgramWasFirst();
        outcome.Printer = TextOf(toolkit::kPrinterWindow);
        outcome.Console = TextOf(toolkit::kConsoleWindow);
        desktop.Terminate();
    });
    outcome.Output = desktop.Printed();
    outcome.Clipboard = desktop.BoardText;
    return outcome;
}
