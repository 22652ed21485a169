#include <chrono>
#include <cstdio>
#include <thread>
#include <utility>

#include "platform/headless/headless.h"

namespace platform::headless {

bool Headless::NamedSound::IsPlaying() {
    return played_ && desktop_.SoundsLast;
}

void Headless::NamedSound::Play() {
    const bool before = played_.exchange(true);
    if (!before || !desktop_.SoundsLast) desktop_.Note(name_);
}

std::string Headless::Printed() {
    const std::lock_guard lock(mutex_);
    return printed_;
}

void Headless::ClearPrinted() {
    const std::lock_guard lock(mutex_);
    printed_.clear();
}

std::vector<std::string> Headless::Played() {
    const std::lock_guard lock(mutex_);
    return played_;
}

void Headless::ClearPlayed() {
    const std::lock_guard lock(mutex_);
    played_.clear();
}

Sound* Headless::Named(const std::string& name) {
    const std::lock_guard lock(mutex_);
    const auto known = SoundFiles.find(name);
    if (known == SoundFiles.end() || !known->second) return nullptr;
    auto& sound = sounds_[name];
    if (sound == nullptr) sound = std::make_unique<NamedSound>(*this, name);
    return sound.get();
}

void Headless::Beep() {
    Note("beep");
}

void Headless::Note(std::string sound) {
    if (!KeepPlayed) return;
    const std::lock_guard lock(mutex_);
    played_.push_back(std::move(sound));
}

double Headless::Now() {
    const std::chrono::nanoseconds passed =
        RealTime ? std::chrono::steady_clock::now() - madeAt_ : std::chrono::nanoseconds(passed_);
    return StartTime + std::chrono::duration<double>(passed).count();
}

void Headless::Sleep(std::chrono::nanoseconds duration) {
    if (OnSleep) OnSleep();
    if (duration.count() > 0) passed_ += duration.count();
    if (RealTime) {
        std::this_thread::sleep_for(duration);
    } else {
        std::this_thread::yield();
    }
}

std::uint32_t Headless::Next() {
    const std::lock_guard lock(mutex_);
    if (NextRandom) return NextRandom();
    random_ = random_ * 1'664'525U + 1'013'904'223U;
    return random_ >> 8U;
}

void Headless::Write(std::string_view text) {
    const std::lock_guard lock(mutex_);
    if (KeepOutput) printed_ += text;
    if (!EchoOutput) return;
    std::fwrite(text.data(), 1, text.size(), stdout);
    std::fflush(stdout);
}

FileContent Headless::ReadFile(const std::string& path) {
    const std::string prefix = ResourceFolder + "/";
    if (path.starts_with(prefix)) {
        const auto file = Files.find(path.substr(prefix.size()));
        if (file != Files.end()) return {file->second, {}};
    }
    return ReadFileFromDisk(path);
}

}  // namespace platform::headless
