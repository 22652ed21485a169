#pragma once

#include <sys/types.h>

#include <QtGui/QImage>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <thread>
#include <vector>

// A screen of the test's own, a window manager on it, programs on it, and a person's hands.

/// A started program with pipes to its standard input and output. Ended by its id when it is
/// destroyed.
class Program {
  public:
    Program(const std::vector<std::string>& command, const std::string& display);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    void Say(const std::string& line) const;
    /// The next line of its output that begins with `beginning`; no value when none came in time.
    std::optional<std::string> Line(const std::string& beginning,
                                    std::chrono::seconds limit = std::chrono::seconds(20));
    void Signal(int number) const;
    [[nodiscard]] pid_t Id() const { return id_; }
    /// Resident memory in KiB; 0 when the program has ended.
    [[nodiscard]] long ResidentKiB() const;
    /// Its exit status; no value when it did not end in time or ended by a signal.
    std::optional<int> Ended(std::chrono::milliseconds limit = std::chrono::seconds(10));

  private:
    pid_t id_ = -1;
    int input_ = -1;
    int output_ = -1;
    std::string unread_;
    bool gone_ = false;
};

/// Xvfb, with openbox unless a test wants another window manager or none.
class Screen {
  public:
    enum class Manager : std::uint8_t { None, Openbox, I3 };  // I3 gives windows its own sizes

    /// A screen of its own; `size` as in "800x600".
    Screen(const std::string& size, Manager manager);
    /// 1600 x 1000 with a window manager, the same for all tests of the run.
    static Screen& Shared();

    [[nodiscard]] const std::string& Display() const { return display_; }

    /// Has the server do nothing for a while, or go on.
    void Signal(int number) const { server_->Signal(number); }

    /// Runs xdotool with these words; its output.
    [[nodiscard]] std::string Do(const std::string& words) const;
    /// What the X server knows of a window.
    [[nodiscard]] std::string Describe(const std::string& window) const;
    /// Has a window keep rows at the top of the screen free, as a panel does.
    void Reserve(const std::string& window, int rows) const;
    void Keyboard(const std::string& layout) const;
    void Press(const std::string& key) const;
    void Type(const std::string& text) const;
    /// The clipboard as another program reads it, as text or into a file; false for none.
    [[nodiscard]] std::string Clipboard(const std::string& type) const;
    [[nodiscard]] bool SaveClipboard(const std::string& type, const std::string& path) const;
    /// What the whole screen shows.
    [[nodiscard]] QImage Picture() const;
    /// Waits until a visible window has this title; its id, empty when none came.
    [[nodiscard]] std::string WindowTitled(const std::string& title) const;

  private:
    std::string display_;
    std::optional<Program> server_;
    std::optional<Program> manager_;
};

/// Asks again and again until `holds` says yes; false when it did not in time.
template <typename Condition>
bool Eventually(const Condition& holds, std::chrono::seconds limit = std::chrono::seconds(20)) {
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!holds()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return true;
}
