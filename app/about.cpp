#include "app/about.h"

#include <string>

#include "app/program_name.h"
#include "platform/platform.h"

namespace {

constexpr const char* kWhatItIs =
    "Ein kleiner Heimcomputer in Fenstern: ein flacher Speicher, acht Grafikfenster, Schriften aus "
    "Punkten und Blockgrafik.";

}  // namespace

void ShowAbout() {
    const std::string name = ProgramName();
    const std::string made = name == "Korvandi" ? "Version " KORVANDI_VERSION
                                                : "Geschrieben für Korvandi " KORVANDI_VERSION;
    static_cast<void>(platform::Current().Panels->RunAlert(
        {name,
         made + ".\n\n" + kWhatItIs +
             "\n\nFreie Software unter der MIT-Lizenz. Die Schriften beruhen auf DejaVu Sans Mono.",
         {"Schließen"}}));
}
