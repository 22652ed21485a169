#pragma once

#include <chrono>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>

#include "platform/system.h"

// Clock, random numbers, standard output and files of a Linux machine. Any thread.

namespace platform::desktop {

/// Counts on through the machine's sleep; setting the machine's time does not move it.
class MachineClock : public Clock {
  public:
    MachineClock();
    [[nodiscard]] double Now() override;
    void Sleep(std::chrono::nanoseconds duration) override;

  private:
    double start_ = 0;  // seconds from the first instant of 2001 to the zero of the machine's count
};

/// A generator per thread, each seeded by the system: no call waits for another.
class MachineRandomness : public Randomness {
  public:
    [[nodiscard]] std::uint32_t Next() override;
};

/// Writes to file descriptor 1. A reader that takes nothing holds a writer up for a fifth of a
/// second; from then on texts are dropped until it takes some again.
class StandardOutput : public Output {
  public:
    void Write(std::string_view text) override;

  private:
    bool WaitForRoom();

    std::mutex mutex_;
    bool stalled_ = false;
};

/// The folders that belong to the program's own file.
class ProgramFolders : public Resources {
  public:
    explicit ProgramFolders(std::string_view applicationName);
    [[nodiscard]] std::string BundlePath() override { return bundle_; }
    [[nodiscard]] std::string Directory() override { return directory_; }
    [[nodiscard]] FileContent ReadFile(const std::string& path) override;

  private:
    std::string bundle_;
    std::string directory_;
};

/// Makes sure that the descriptors 0 to 2 are open, so that no file or connection that is opened
/// later becomes the standard output. Before anything else is opened.
void OpenStandardDescriptors();

}  // namespace platform::desktop
