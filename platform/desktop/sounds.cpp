#include "platform/desktop/sounds.h"

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/main_queue.h"
#include "platform/parts/sound_device.h"
#include "platform/platform.h"

namespace platform::desktop {

namespace {

using std::chrono::steady_clock;

// How long a sound counts as playing before the sound thread has got to it.
constexpr std::chrono::seconds kPatience{2};

// An unused device is given back: it would keep a mixer running, and the next sound then finds the
// device that the desktop uses by that time.
constexpr std::chrono::seconds kKeepDevice{15};

constexpr std::chrono::milliseconds kBetweenBeeps{60};
constexpr int kMostBeepsDue = 12;

}  // namespace

DesktopSound::DesktopSound(DesktopSounds& owner, std::string path)
    : owner_(owner), path_(std::move(path)) {}

bool DesktopSound::IsPlaying() {
    return steady_clock::now() < end_.load();
}

void DesktopSound::Play() {
    if (IsPlaying() || asked_.exchange(true)) return;
    end_ = steady_clock::now() + kPatience;
    owner_.Wake();
}

void DesktopSound::PlaysFor(std::chrono::nanoseconds duration) {
    end_ = steady_clock::now() + duration;
}

DesktopSounds::DesktopSounds(std::string directory) : directory_(std::move(directory)) {
    constexpr int kKeepPersonsChoice = 0;
    setenv("ALSOFT_LOGLEVEL", "0", kKeepPersonsChoice);  // no messages about missing devices
}

Sound* DesktopSounds::Named(const std::string& name) {
    const std::lock_guard lock(mutex_);
    const auto [entry, isNew] = sounds_.try_emplace(name);
    if (isNew) {
        std::error_code error;
        const std::string path = directory_ + "/" + name;
        if (std::filesystem::is_regular_file(path, error)) {
            entry->second = std::make_unique<DesktopSound>(*this, path);
        }
    }
    return entry->second.get();
}

// One after the other, and no more than can be told apart: a program that beeps without pause must
// not fill the connection to the display.
void DesktopSounds::Beep() {
    int due = beepsDue_;
    while (due < kMostBeepsDue && !beepsDue_.compare_exchange_weak(due, due + 1)) {
    }
    if (due == 0) PostToMain([this] { ServeBeeps(); });
}

void DesktopSounds::ServeBeeps() {
    QApplication::beep();
    QTimer::singleShot(kBetweenBeeps, QCoreApplication::instance(), [this] {
        if (--beepsDue_ > 0) ServeBeeps();
    });
}

void DesktopSounds::Wake() {
    const std::lock_guard lock(mutex_);
    woken_ = true;
    asked_.notify_one();
    // The first sound begins the thread; that takes longer than a caller may be held up.
    if (!std::exchange(serving_, true)) PostToMain([this] { BeginServing(); });
}

// Without a thread there is one line, and the next sound tries again.
void DesktopSounds::BeginServing() {
    const std::string fault = StartThread([this] { Serve(); }, 0);
    if (fault.empty()) return;
    if (!std::exchange(faultIsTold_, true)) {
        Current().Output->Write("DesktopSounds: Thread could not be started: " + fault + "\n");
    }
    const std::lock_guard lock(mutex_);
    serving_ = false;
}

// The sound thread. It ends with the process.
void DesktopSounds::Serve() {
    NameThread("Sounds");
    parts::SoundDevice device;
    while (true) {
        {
            std::unique_lock lock(mutex_);
            const auto woken = [this] { return woken_; };
            if (!asked_.wait_for(lock, kKeepDevice, woken)) {
                lock.unlock();
                device.Close();
                lock.lock();
                asked_.wait(lock, woken);
            }
            woken_ = false;
        }
        for (DesktopSound* const sound : TakeRequests()) {
            sound->PlaysFor(device.Play(sound->Path()));
        }
    }
}

std::vector<DesktopSound*> DesktopSounds::TakeRequests() {
    std::vector<DesktopSound*> requests;
    const std::lock_guard lock(mutex_);
    for (const auto& [name, sound] : sounds_) {
        if (sound == nullptr || !sound->TakeRequest()) continue;
        // What was asked for too long ago is not made up for.
        if (sound->IsPlaying()) requests.push_back(sound.get());
    }
    return requests;
}

}  // namespace platform::desktop
