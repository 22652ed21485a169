#pragma once

#include <cstdint>
#include <functional>
#include <string>

/// The user program on its thread, again and again if the person wants it. Main thread; must
/// outlive the program's thread or the main queue.
class ProgramRun {
  public:
    enum class State : std::uint8_t { NotStarted, Running, Ended, NotPossible };

    /// `over` is called when the program's thread has ended, however it ended, and when none could
    /// be started.
    ProgramRun(std::function<void()> program, std::function<void()> over);

    /// Starts the program on a new thread by startprocess. Nothing while it is running.
    void Start();

    [[nodiscard]] State Now() const { return state_; }
    [[nodiscard]] bool IsOver() const {
        return state_ == State::Ended || state_ == State::NotPossible;
    }
    /// Why no thread could be started.
    [[nodiscard]] const std::string& Fault() const { return fault_; }

    /// Stack size of the program thread, bytes.
    static constexpr std::int64_t kStack = 0x4000'0000;

  private:
    void RunOnThread();
    void Finish(State state);

    std::function<void()> program_;
    std::function<void()> over_;
    State state_ = State::NotStarted;
    std::string fault_;
};
