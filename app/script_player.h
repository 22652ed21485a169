#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <thread>
#include <vector>

#include "korvandi_headless.h"
#include "platform/headless/headless.h"

/// Gives a desktop in memory the resources that the program finds on the disk. Main thread.
void FurnishDesktop(platform::headless::Headless& desktop);

/// The person in front of a desktop in memory, who does what a script says. Made on the main thread
/// before another one runs; must outlive the program's thread. Acts whenever that sleeps.
class ScriptPlayer {
  public:
    using Looked = std::function<void(const korvandi::Step& look)>;

    /// `looked` is called on the main thread for every step that takes a picture; `over` on the program's thread, once,
    /// after the last step.
    ScriptPlayer(platform::headless::Headless& desktop, korvandi::Script script, Looked looked,
                 std::function<void()> over);

    /// The program as it is to be run: the thread that runs it is the one that is watched.
    [[nodiscard]] std::function<void()> Watched(std::function<void()> program);

    /// Whether the program was begun and has ended before the script. When it has ended.
    [[nodiscard]] bool ProgramWasFirst() const { return program_.has_value() && !over_; }

    /// Takes the pictures of the steps that were not reached. Main thread, when the program has
    /// ended.
    void TakeRemainingPictures();

  private:
    void Slept();
    void Act();
    [[nodiscard]] bool IsDue(const korvandi::Step& step);
    void Do(const korvandi::Step& step);
    void RunTasks();

    platform::headless::Headless& desktop_;
    korvandi::Script script_;
    Looked looked_;
    std::function<void()> whenOver_;
    std::optional<std::thread::id> program_;
    std::size_t next_ = 0;
    std::int64_t sleeps_ = 0;      // since the last wait
    std::optional<double> since_;  // when the wait began, seconds
    bool over_ = false;
    bool doing_ = false;  // a step
    std::vector<std::function<void()>> tasks_;
};
