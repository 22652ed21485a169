#include "toolkit/core/sounds.h"

#include "platform/platform.h"

constinit toolkit::Shared<bool> toolkit::SoundsOn = true;

namespace {

void PlayNamed(const char* name) {
    if (!toolkit::SoundsOn) return;
    platform::Sounds& sounds = *platform::Current().Sounds;
    platform::Sound* const sound = sounds.Named(name);
    if (sound == nullptr) {
        sounds.Beep();
    } else if (!sound->IsPlaying()) {
        sound->Play();
    }
}

}  // namespace

void t_Click() {
    PlayNamed("click.aif");
}

void t_SysBeep() {
    PlayNamed("sysbeep.aif");
}
