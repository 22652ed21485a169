#pragma once

#include <AL/al.h>
#include <AL/alc.h>

#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace platform::parts {

/// The sound hardware as one device that plays files. Opened with the first sound, opened again
/// when it went away. For one thread; every call may take as long as the hardware likes.
class SoundDevice {
  public:
    SoundDevice() = default;
    ~SoundDevice() { Close(); }
    SoundDevice(const SoundDevice&) = delete;
    SoundDevice& operator=(const SoundDevice&) = delete;

    /// Begins to play the file and returns how long that takes; 0 when it cannot be played.
    std::chrono::nanoseconds Play(const std::string& path);

    void Close();

  private:
    struct Samples {
        std::vector<std::int16_t> Values;  // of one channel, or of left and right in turn
        std::int64_t Channels = 0;         // 1 or 2; 0 for a file that cannot be played
        std::int64_t Rate = 0;             // values of each channel per second

        [[nodiscard]] std::chrono::nanoseconds Duration() const;
    };
    struct Voice {
        ALuint Buffer = 0;
        ALuint Source = 0;
    };

    static Samples Read(const std::string& path);
    const Samples& SamplesOf(const std::string& path);
    bool Open();
    [[nodiscard]] bool Lost() const;
    const Voice* VoiceOf(const std::string& path, const Samples& samples);

    std::map<std::string, Samples> samples_;  // kept while the process runs
    std::map<std::string, Voice> voices_;     // belong to the open device
    ALCdevice* device_ = nullptr;
    ALCcontext* context_ = nullptr;
    std::chrono::steady_clock::time_point nextTry_;  // no attempt to open before this
};

}  // namespace platform::parts
