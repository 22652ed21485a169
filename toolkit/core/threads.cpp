#include "toolkit/core/threads.h"

#include <string>
#include <utility>

#include "platform/platform.h"
#include "toolkit/core/clock.h"
#include "toolkit/core/output.h"
#include "toolkit/core/text.h"

constinit toolkit::Shared<bool> t_MemoryStarted;
constinit toolkit::Shared<bool> t_ToolsReady;
constinit toolkit::Shared<bool> t_ProgramStartPending;
constinit toolkit::Shared<std::int64_t> t_ProgramStackSize;
std::function<void()>& t_ProgramEntry = *new std::function<void()>;

namespace {

constexpr std::string_view kNumberMark = "number = ";

void PrintNotStarted(std::string_view operation, std::string_view reason) {
    toolkit::PrintLine(operation, ": Thread could not be started: ", reason);
}

}  // namespace

void startprocess(std::function<void()> entry, std::int64_t stackSize) {
    static_cast<void>(toolkit::StartProcess(std::move(entry), stackSize));
}

std::string toolkit::StartProcess(std::function<void()> entry, std::int64_t stackSize) {
    // Makes the thread and is its body.
    class startprogramclass {
      public:
        startprogramclass()
            : Fault(platform::StartThread(
                  [] { startprogramthread(); },
                  static_cast<std::size_t>(std::int64_t(t_ProgramStackSize)))) {
            if (Fault.empty()) return;
            t_ProgramStartPending = false;
            PrintNotStarted("startprocess", Fault);
        }

        static void startprogramthread() {
            const std::function<void()> program = std::exchange(t_ProgramEntry, {});
            t_ProgramStartPending = false;
            if (program) program();
        }

        std::string Fault;
    };

    while (t_ProgramStartPending.Exchange(true)) WaitMilliseconds(1);
    t_ProgramStackSize = stackSize < 0 ? 0 : stackSize;
    t_ProgramEntry = std::move(entry);
    SleepMilliseconds(10);
    return platform::AskMain([] { return startprogramclass().Fault; });
}

void t_RunInBackground(std::function<void()> entry) {
    static_cast<void>(toolkit::RunInBackground(__func__, std::move(entry)));
}

bool toolkit::RunInBackground(std::string_view operation, std::function<void()> entry) {
    const std::string fault = platform::StartBackgroundTask(std::move(entry));
    if (!fault.empty()) PrintNotStarted(operation, fault);
    return fault.empty();
}

std::int64_t t_ThreadNumber() {
    return toolkit::NumberInDescription(platform::ThreadDescription());
}

std::int64_t toolkit::NumberInDescription(std::string_view description) {
    const std::size_t mark = description.find(kNumberMark);
    if (mark == std::string_view::npos) return 0;
    description.remove_prefix(mark + kNumberMark.size());
    const std::size_t comma = description.find(',');
    if (comma == std::string_view::npos) return 0;
    return t_TextToInt(t_StringToText(description.substr(0, comma)));
}
