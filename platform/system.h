#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

// What the toolkit asks of the machine beneath the desktop. Any thread.

namespace platform {

class Clock {
  public:
    virtual ~Clock() = default;

    /// Seconds since the first instant of 2001 (UTC). Never steps back while the process runs.
    [[nodiscard]] virtual double Now() = 0;
    /// Blocks the calling thread for this long; not at all for nothing or less.
    virtual void Sleep(std::chrono::nanoseconds duration) = 0;

    // Pauses of those who wait for something. Where time stands still, plain sleeps.

    /// The same, or up to `slack` longer, when that spares the machine a wake-up.
    virtual void SleepAbout(std::chrono::nanoseconds duration, std::chrono::nanoseconds /*slack*/) {
        Sleep(duration);
    }
    /// Blocks for about this long, at most twice as long, and ends when `done` holds: looks at once
    /// and after every Wake. `done` is asked on this thread.
    virtual void SleepUnless(std::chrono::nanoseconds duration,
                             const std::function<bool()>& /*done*/) {
        Sleep(duration);
    }
    /// Has all who sleep in SleepUnless look at what they wait for.
    virtual void Wake() {}
};

class Randomness {
  public:
    virtual ~Randomness() = default;

    /// 32 evenly distributed bits.
    [[nodiscard]] virtual std::uint32_t Next() = 0;
};

/// The program's standard output.
class Output {
  public:
    virtual ~Output() = default;

    /// Writes the text in one piece and lets it be seen at once. An output that is closed, full or
    /// without a reader takes the text silently.
    virtual void Write(std::string_view text) = 0;
};

/// The content of a file; `Error` is zero when it could be read.
struct FileContent {
    std::vector<std::uint8_t> Bytes;
    std::error_code Error;
};

/// Reads the whole regular file at `path` from the disk.
[[nodiscard]] FileContent ReadFileFromDisk(const std::string& path);

class Resources {
  public:
    virtual ~Resources() = default;

    /// Path of the application as the desktop names it; its last component ends in ".app".
    [[nodiscard]] virtual std::string BundlePath() = 0;
    /// Path of the folder that holds the program's resource files, without a slash at the end.
    [[nodiscard]] virtual std::string Directory() = 0;
    /// The folders in which that one was looked for in vain; none when it is there.
    /// Optional: none.
    [[nodiscard]] virtual std::vector<std::string> SearchedInVain() { return {}; }
    /// The whole regular file at `path`. Optional: as it is on the disk, which is also what an
    /// implementation reads for a path that it has nothing else for.
    [[nodiscard]] virtual FileContent ReadFile(const std::string& path) {
        return ReadFileFromDisk(path);
    }
};

/// Makes `bytes` the content of the regular file at `path`, which need not exist yet; a link is
/// followed. The bytes go to a new file beside it first, which takes its place, its permissions and
/// as far as possible its owner once everything is on the disk. The result is the reason for not
/// doing so, and zero when it is done; the file then is as it was before. Does not replace a file
/// that may not be written.
[[nodiscard]] std::error_code WriteFileToDisk(const std::string& path, std::string_view bytes);

}  // namespace platform
