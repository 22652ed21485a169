#include "app/virtual_screen.h"

#include <filesystem>
#include <optional>
#include <utility>
#include <variant>

#include "app/run_program.h"
#include "app/screen_picture.h"
#include "app/script_player.h"
#include "platform/headless/headless.h"
#include "platform/key_codes.h"
#include "toolkit/toolkit.h"

namespace {

using platform::Picture;
using platform::headless::Headless;

// What the person does: waits, looks, presses a key.
korvandi::Script PersonsScript() {
    using namespace korvandi;
    return {
        WaitSleeps{3},
        Look{0, "1-verzoegerung"},
        Key{platform::kKeyReturn, "\r"},
        WaitSleeps{50},
        Look{0, "2-anfang"},
        WaitSleeps{450},
        Look{0, "3-spiel"},
        WaitSleeps{1000},
        Look{0, "4-spaeter"},
        Key{platform::kKeyEscape, "\x1B"},
        WaitSleeps{4},
        Look{0, "5-noch-einmal"},
        Key{platform::kKeyN, "n"},
        WaitSleeps{1},
        Look{0, "6-ende"},
    };
}

// Where the pictures of a program go. Letters beyond ASCII stay as they are.
std::string FolderFor(std::string_view name) {
    std::string folder(name);
    for (char& letter : folder) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return folder + "-bilder";
}

// The pictures that were taken so far. Main thread.
class Album {
  public:
    Album(std::string folder, PictureSaver save)
        : folder_(std::move(folder)), save_(std::move(save)) {}

    void Take(const korvandi::Look& look) {
        const std::optional<Picture> picture = t_WindowSnapshot(look.Window);
        if (!picture) return;
        const std::string path = toolkit::Joined(folder_, "/", look.Name, ".png");
        const bool saved = save_(WithBorder(*picture, t_Windows[look.Window]), path);
        (saved ? saved_ : failed_) = true;
        toolkit::PrintLine(saved ? "Bild: " : "Bild konnte nicht geschrieben werden: ", path);
    }

    [[nodiscard]] bool Saved() const { return saved_ && !failed_; }

  private:
    std::string folder_;
    PictureSaver save_;
    bool saved_ = false;   // a picture
    bool failed_ = false;  // to save one
};

}  // namespace

bool PlayOnVirtualScreen(std::string_view name, std::function<void()> program, PictureSaver save) {
    auto& desktop = *new Headless;  // the program thread may still use it when the process ends
    FurnishDesktop(desktop);
    desktop.Bundle = toolkit::Joined("/Applications/", name, ".app");
    desktop.KeepOutput = desktop.KeepPlayed = false;
    desktop.EchoOutput = true;
    const std::string folder = FolderFor(name);
    toolkit::PrintLine("Kein Bildschirm erreichbar: ", name,
                       " spielt auf einem gedachten Bildschirm.");
    toolkit::PrintLine("Bilder davon stehen im Ordner ", folder, ".");
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    auto& album = *new Album(folder, std::move(save));
    auto& person = *new ScriptPlayer(
        desktop, PersonsScript(),
        [&album](const korvandi::Step& look) { album.Take(std::get<korvandi::Look>(look)); },
        [&desktop] { desktop.Terminate(); });
    RunProgram(person.Watched(std::move(program)), [&desktop] { desktop.Terminate(); });
    return album.Saved();
}
