#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/sound.h"

// Sounds of files. Whoever asks only leaves a note; a thread of its own, begun with the first
// sound, reads the files and deals with the sound hardware, however long that takes. Any thread.

namespace platform::desktop {

class DesktopSounds;

/// A sound in a file that was there when it was asked for.
class DesktopSound : public Sound {
  public:
    DesktopSound(DesktopSounds& owner, std::string path);

    [[nodiscard]] bool IsPlaying() override;
    void Play() override;

    [[nodiscard]] const std::string& Path() const { return path_; }

    /// For the sound thread: whether Play was called since the last time.
    [[nodiscard]] bool TakeRequest() { return asked_.exchange(false); }
    /// For the sound thread: the sound is heard for so long from now on; 0 for not at all.
    void PlaysFor(std::chrono::nanoseconds duration);

  private:
    DesktopSounds& owner_;
    std::string path_;
    std::atomic<bool> asked_ = false;
    std::atomic<std::chrono::steady_clock::time_point> end_;  // when it will have been played
};

class DesktopSounds : public Sounds {
  public:
    /// `directory` holds the sound files. Before other threads run.
    explicit DesktopSounds(std::string directory);

    [[nodiscard]] Sound* Named(const std::string& name) override;
    void Beep() override;

    /// Has the sound thread look for requests.
    void Wake();

  private:
    void BeginServing();
    void Serve();
    void ServeBeeps();
    [[nodiscard]] std::vector<DesktopSound*> TakeRequests();

    std::string directory_;
    std::mutex mutex_;
    std::condition_variable asked_;
    std::map<std::string, std::unique_ptr<DesktopSound>> sounds_;  // nullptr: no such file
    bool serving_ = false;                                         // the sound thread runs
    bool faultIsTold_ = false;                                     // main thread
    bool woken_ = false;                                           // there may be requests
    std::atomic<int> beepsDue_ = 0;                                // asked for and not over
};

}  // namespace platform::desktop
