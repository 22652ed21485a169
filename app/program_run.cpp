#include "app/program_run.h"

#include <utility>

#include "platform/main_queue.h"
#include "toolkit/core/threads.h"

namespace {

/// Posts to the main thread when the thread that made it leaves its scope, or ends within it.
class AtEnd {
  public:
    explicit AtEnd(std::function<void()> work) : work_(std::move(work)) {}
    ~AtEnd() { platform::PostToMain(std::move(work_)); }
    AtEnd(const AtEnd&) = delete;
    AtEnd& operator=(const AtEnd&) = delete;

  private:
    std::function<void()> work_;
};

}  // namespace

ProgramRun::ProgramRun(std::function<void()> program, std::function<void()> over)
    : program_(std::move(program)), over_(std::move(over)) {}

void ProgramRun::Start() {
    if (state_ == State::Running) return;
    state_ = State::Running;
    fault_ = toolkit::StartProcess([this] { RunOnThread(); }, kStack);
    if (!fault_.empty()) Finish(State::NotPossible);
}

void ProgramRun::RunOnThread() {
    const AtEnd tell([this] { Finish(State::Ended); });
    if (program_) program_();
}

void ProgramRun::Finish(State state) {
    state_ = state;
    over_();
}
