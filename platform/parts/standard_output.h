#pragma once

#include <chrono>
#include <mutex>
#include <string_view>

#include "platform/system.h"

namespace platform::parts {

/// Writes to file descriptor 1. A reader that takes nothing holds a writer up for a fifth of a
/// second, whatever kind of output it reads; from then on texts are dropped until it takes some
/// again. Any thread.
class StandardOutput : public Output {
  public:
    StandardOutput();

    void Write(std::string_view text) override;

  private:
    [[nodiscard]] bool WaitForRoom(std::chrono::steady_clock::time_point until) const;
    void Stall(std::chrono::steady_clock::time_point now);

    bool roomIsPromised_;  // where there is room, a piece is taken without making the writer wait
    std::mutex mutex_;
    bool stalled_ = false;
    std::chrono::steady_clock::time_point nextTry_;  // of a stalled output that promises nothing
};

/// Makes sure that the descriptors 0 to 2 are open, so that no file or connection that is opened
/// later becomes the standard output. Before anything else is opened.
void OpenStandardDescriptors();

}  // namespace platform::parts
