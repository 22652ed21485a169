#include "app/virtual_screen.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <utility>

#include "app/run_program.h"
#include "platform/headless/headless.h"
#include "platform/program_files.h"
#include "toolkit/toolkit.h"

namespace {

using platform::Picture;
using platform::headless::Headless;

// What the person does, one row after the other: waits while the program sleeps so many times,
// looks at the picture, presses a key.
struct Step {
    int Sleeps;
    std::string_view Name;
    std::int64_t KeyCode;
    std::string_view Characters;  // empty: no key
};

constexpr Step kSteps[] = {
    {3, "1-verzoegerung", 36, "\r"},  // the question for the delay
    {50, "2-anfang", 0, ""},          //
    {450, "3-spiel", 0, ""},          //
    {1000, "4-spaeter", 53, "\x1B"},  //
    {4, "5-noch-einmal", 45, "n"},    // the closing question
    {1, "6-ende", 0, ""},             //
};

// Where the pictures of a program go. Letters beyond ASCII stay as they are.
std::string FolderFor(std::string_view name) {
    std::string folder(name);
    for (char& letter : folder) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return folder + "-bilder";
}

// The window's picture with its border around it.
Picture WithBorder(const Picture& picture, const t_Window& w) {
    const std::int64_t side = std::max<std::int64_t>(w.BorderWidth, 0);
    const std::int64_t edge = std::max<std::int64_t>(w.BorderHeight, 0);
    const t_RGBColor border = w.RGBColorBorder;
    Picture framed;
    framed.Width = picture.Width + 2 * side;
    framed.Height = picture.Height + 2 * edge;
    for (std::int64_t i = 0; i < framed.Width * framed.Height; ++i) {
        framed.Bytes.insert(framed.Bytes.end(),
                            {border.Alpha, border.Red, border.Green, border.Blue});
    }
    for (std::int64_t y = 0; y < picture.Height; ++y) {
        const std::uint8_t* const row = picture.Bytes.data() + y * picture.Width * 4;
        std::copy(row, row + picture.Width * 4,
                  framed.Bytes.data() + ((y + edge) * framed.Width + side) * 4);
    }
    return framed;
}

// The person in front of the virtual screen. Acts on the program thread, whenever that sleeps.
class Person {
  public:
    Person(Headless& desktop, std::string folder, PictureSaver save)
        : desktop_(desktop), folder_(std::move(folder)), save_(std::move(save)) {}

    void Act() {
        if (platform::OnMain() || step_ == std::end(kSteps) || ++sleeps_ < step_->Sleeps) return;
        const Step& step = *step_++;
        sleeps_ = 0;
        platform::RunOnMain([&] { LookAndPress(step); });
        if (step_ == std::end(kSteps)) desktop_.Terminate();
    }

    [[nodiscard]] bool Saved() const { return saved_ && !failed_; }

  private:
    void LookAndPress(const Step& step) {
        if (const std::optional<Picture> picture = t_WindowSnapshot(0)) {
            const std::string path = toolkit::Joined(folder_, "/", step.Name, ".png");
            const bool saved = save_(WithBorder(*picture, t_Windows[0]), path);
            (saved ? saved_ : failed_) = true;
            toolkit::PrintLine(saved ? "Bild: " : "Bild konnte nicht geschrieben werden: ", path);
        }
        if (step.Characters.empty()) return;
        viewKeyDown(0, {step.KeyCode, std::string(step.Characters), 0});
    }

    Headless& desktop_;
    std::string folder_;
    PictureSaver save_;
    const Step* step_ = std::begin(kSteps);
    int sleeps_ = 0;
    bool saved_ = false;   // a picture
    bool failed_ = false;  // to save one
};

}  // namespace

bool PlayOnVirtualScreen(std::string_view name, std::function<void()> program, PictureSaver save) {
    auto& desktop = *new Headless;  // the program thread may still use it when the process ends
    const platform::ResourceFolder resources = platform::FindResourceFolder();
    desktop.Bundle = toolkit::Joined("/Applications/", name, ".app");
    desktop.ResourceFolder = resources.Path;
    desktop.ResourcesSearched = resources.Searched;
    desktop.SoundFiles = {{"click.aif", true}, {"sysbeep.aif", true}};
    desktop.KeepOutput = desktop.KeepPlayed = false;
    desktop.EchoOutput = true;
    const std::string folder = FolderFor(name);
    toolkit::PrintLine("Kein Bildschirm erreichbar: ", name,
                       " spielt auf einem gedachten Bildschirm.");
    toolkit::PrintLine("Bilder davon stehen im Ordner ", folder, ".");
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    auto& person = *new Person(desktop, folder, std::move(save));
    desktop.OnSleep = [&person] { person.Act(); };
    RunProgram(std::move(program), [&desktop] { desktop.Terminate(); });
    return person.Saved();
}
