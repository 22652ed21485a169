#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>

#include "platform/program_files.h"
#include "platform/system.h"

// Clock, random numbers and files of a Linux machine. Any thread.

namespace platform::parts {

/// Counts on through the machine's sleep; setting the machine's time does not move it.
class MachineClock : public Clock {
  public:
    MachineClock();
    [[nodiscard]] double Now() override;
    void Sleep(std::chrono::nanoseconds duration) override;
    void SleepAbout(std::chrono::nanoseconds duration, std::chrono::nanoseconds slack) override;
    void SleepUnless(std::chrono::nanoseconds duration, const std::function<bool()>& done) override;
    void Wake() override;

  private:
    std::mutex sleepers_;
    std::condition_variable wake_;
    double start_ = 0;  // seconds from the first instant of 2001 to the zero of the machine's count
};

/// A generator per thread, each seeded by the system: no call waits for another.
class MachineRandomness : public Randomness {
  public:
    [[nodiscard]] std::uint32_t Next() override;
};

/// The folders that belong to the program's own file.
class ProgramFolders : public Resources {
  public:
    explicit ProgramFolders(std::string_view applicationName);
    [[nodiscard]] std::string BundlePath() override { return bundle_; }
    [[nodiscard]] std::string Directory() override { return resources_.Path; }
    [[nodiscard]] std::vector<std::string> SearchedInVain() override { return resources_.Searched; }
    [[nodiscard]] FileContent ReadFile(const std::string& path) override;

  private:
    std::string bundle_;
    ResourceFolder resources_;
};

}  // namespace platform::parts
