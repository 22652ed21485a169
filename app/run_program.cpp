#include "app/run_program.h"

#include <utility>

#include "app/app_delegate.h"
#include "app/interface.h"
#include "platform/platform.h"
#include "toolkit/core/memory.h"

void RunProgram(std::function<void()> program, std::function<void()> programIsOver) {
    t_Memory.MakeAhead();
    // Never destroyed: other threads may be using it when the process ends.
    auto& delegate = *new AppDelegate(std::move(program), std::move(programIsOver));
    BuildInterface(delegate);
    platform::Current().Application->Run(delegate);
}
