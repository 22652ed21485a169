#pragma once

#include <string>

namespace platform {

/// A sound that was found in the resource directory. Any thread; each call takes well under a
/// millisecond, whatever the sound hardware does.
class Sound {
  public:
    virtual ~Sound() = default;

    [[nodiscard]] virtual bool IsPlaying() = 0;
    /// Begins the sound; nothing while it plays.
    virtual void Play() = 0;
};

/// The desktop's sounds. Any thread, as quick as a Sound. Optional: as it stands there are none.
class Sounds {
  public:
    virtual ~Sounds() = default;

    /// The sound in the resource file `name`; nullptr when there is no such file. The sound lives
    /// as long as the process.
    [[nodiscard]] virtual Sound* Named(const std::string& /*name*/) { return nullptr; }
    /// The desktop's own warning sound.
    virtual void Beep() {}
};

}  // namespace platform
