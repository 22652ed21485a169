#include "platform/parts/sound_device.h"

#include <dlfcn.h>
#include <sndfile.h>

#include <memory>
#include <utility>

namespace platform::parts {

namespace {

using std::chrono::steady_clock;

// After a vain attempt to open the device, sounds are dropped for so long.
constexpr std::chrono::seconds kBetweenTries{30};

// Longer files are not played: they would be held in memory.
constexpr sf_count_t kMostFrames = 2'880'000;  // a minute of them at 48,000 a second

// From the extension ALC_EXT_disconnect.
constexpr ALCenum kConnected = 0x313;

struct CloseFile {
    void operator()(SNDFILE* file) const { sf_close(file); }
};

void SayNothing(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/,
                const char* /*format*/, ...) {}

// The sound system beneath complains on the standard error output about every card that is not
// there, which is no fault here.
void SilenceSoundSystem() {
    static void* const system = dlopen("libasound.so.2", RTLD_LAZY | RTLD_LOCAL);
    if (system == nullptr) return;
    void* const setter = dlsym(system, "snd_lib_error_set_handler");
    if (setter != nullptr) reinterpret_cast<int (*)(decltype(&SayNothing))>(setter)(SayNothing);
}

}  // namespace

std::chrono::nanoseconds SoundDevice::Samples::Duration() const {
    const std::int64_t frames = std::ssize(Values) / Channels;
    return std::chrono::nanoseconds(frames * 1'000'000'000 / Rate);
}

std::chrono::nanoseconds SoundDevice::Play(const std::string& path) {
    const Samples& samples = SamplesOf(path);
    if (samples.Channels == 0 || !Open()) return {};
    const Voice* const voice = VoiceOf(path, samples);
    if (voice == nullptr) return {};
    alSourcePlay(voice->Source);
    if (alGetError() != AL_NO_ERROR) return {};
    return samples.Duration();
}

void SoundDevice::Close() {
    for (const auto& [path, voice] : voices_) {
        alDeleteSources(1, &voice.Source);
        alDeleteBuffers(1, &voice.Buffer);
    }
    voices_.clear();
    alcMakeContextCurrent(nullptr);
    if (context_ != nullptr) alcDestroyContext(std::exchange(context_, nullptr));
    if (device_ != nullptr) alcCloseDevice(std::exchange(device_, nullptr));
}

SoundDevice::Samples SoundDevice::Read(const std::string& path) {
    SF_INFO info{};
    const std::unique_ptr<SNDFILE, CloseFile> file(sf_open(path.c_str(), SFM_READ, &info));
    const bool playable = file != nullptr && info.frames > 0 && info.frames <= kMostFrames &&
                          info.samplerate > 0 && (info.channels == 1 || info.channels == 2);
    if (!playable) return {};
    Samples samples;
    samples.Values.resize(static_cast<std::size_t>(info.frames * info.channels));
    const sf_count_t frames = sf_readf_short(file.get(), samples.Values.data(), info.frames);
    if (frames <= 0) return {};
    samples.Values.resize(static_cast<std::size_t>(frames * info.channels));
    samples.Channels = info.channels;
    samples.Rate = info.samplerate;
    return samples;
}

const SoundDevice::Samples& SoundDevice::SamplesOf(const std::string& path) {
    const auto [entry, isNew] = samples_.try_emplace(path);
    if (isNew) entry->second = Read(path);
    return entry->second;
}

bool SoundDevice::Open() {
    if (device_ != nullptr && Lost()) Close();
    if (device_ != nullptr) return true;
    if (steady_clock::now() < nextTry_) return false;
    SilenceSoundSystem();
    device_ = alcOpenDevice(nullptr);
    if (device_ != nullptr) context_ = alcCreateContext(device_, nullptr);
    if (context_ != nullptr && alcMakeContextCurrent(context_) != ALC_FALSE) return true;
    Close();
    nextTry_ = steady_clock::now() + kBetweenTries;
    return false;
}

bool SoundDevice::Lost() const {
    if (alcIsExtensionPresent(device_, "ALC_EXT_disconnect") == ALC_FALSE) return false;
    ALCint connected = ALC_TRUE;
    alcGetIntegerv(device_, kConnected, 1, &connected);
    return connected == ALC_FALSE;
}

// One source per sound, its buffer attached; nullptr when the device has no room for it.
const SoundDevice::Voice* SoundDevice::VoiceOf(const std::string& path, const Samples& samples) {
    const auto [entry, isNew] = voices_.try_emplace(path);
    Voice& voice = entry->second;
    if (!isNew) return &voice;
    alGetError();
    alGenBuffers(1, &voice.Buffer);
    alBufferData(voice.Buffer, samples.Channels == 1 ? AL_FORMAT_MONO16 : AL_FORMAT_STEREO16,
                 samples.Values.data(),
                 static_cast<ALsizei>(samples.Values.size() * sizeof samples.Values[0]),
                 static_cast<ALsizei>(samples.Rate));
    alGenSources(1, &voice.Source);
    alSourcei(voice.Source, AL_BUFFER, static_cast<ALint>(voice.Buffer));
    if (alGetError() == AL_NO_ERROR) return &voice;
    if (voice.Source != 0) alDeleteSources(1, &voice.Source);
    if (voice.Buffer != 0) alDeleteBuffers(1, &voice.Buffer);
    alGetError();
    voices_.erase(entry);
    return nullptr;
}

}  // namespace platform::parts
