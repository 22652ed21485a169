#include <algorithm>
#include <string>
#include <utility>

#include "platform/platform.h"
#include "toolkit/core/clock.h"
#include "toolkit/core/numbers.h"
#include "toolkit/core/output.h"
#include "toolkit/core/runtime.h"

constinit toolkit::Shared<bool> t_ProgramStartPending;
constinit toolkit::Shared<std::int64_t> t_ProgramStackSize;
std::function<void()>& t_ProgramEntry = *new std::function<void()>;

namespace {

constexpr std::string_view kNumberMark = "number = ";

void PrintNotStarted(std::string_view operation, std::string_view reason) {
    toolkit::PrintLine(operation, ": Thread could not be started: ", reason);
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view WithoutLeadingBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    return text;
}

}  // namespace

void startprocess(std::function<void()> entry, std::int64_t stackSize) {
    // Makes the thread and is its body.
    class startprogramclass {
      public:
        startprogramclass() {
            const std::string fault =
                platform::StartThread([] { startprogramthread(); },
                                      static_cast<std::size_t>(std::int64_t(t_ProgramStackSize)));
            if (fault.empty()) return;
            t_ProgramStartPending = false;
            PrintNotStarted("startprocess", fault);
        }

        static void startprogramthread() {
            const std::function<void()> program = std::exchange(t_ProgramEntry, {});
            t_ProgramStartPending = false;
            if (program) program();
        }
    };

    while (t_ProgramStartPending.Exchange(true)) toolkit::SleepMilliseconds(1);
    t_ProgramStackSize = stackSize < 0 ? 0 : stackSize;
    t_ProgramEntry = std::move(entry);
    toolkit::SleepMilliseconds(10);
    platform::RunOnMain([] { startprogramclass(); });
}

void t_RunInBackground(std::function<void()> entry) {
    const std::string fault = platform::StartBackgroundTask(std::move(entry));
    if (!fault.empty()) PrintNotStarted(__func__, fault);
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
    std::string_view digits = WithoutLeadingBlanks(description.substr(0, comma));
    const bool negative = digits.starts_with('-');
    if (negative) digits = WithoutLeadingBlanks(digits.substr(1));
    std::int64_t number = 0;
    for (; !digits.empty() && IsDigit(digits.front()); digits.remove_prefix(1)) {
        number = Plus(Times(number, 10), digits.front() - '0');
    }
    return negative ? -number : number;
}
