#include "platform/parts/machine.h"

#include <thread>

#include "tests/support/fixture.h"

namespace {

using MachineTime = ToolkitTest;

}  // namespace

TEST_F(MachineTime, WhoWaitsForAnEventIsWokenByIt) {
    platform::parts::MachineClock clock;
    platform::Platform machine = platform::Current();
    machine.Clock = &clock;
    platform::Install(machine);
    const auto pending = [] { return bool{t_EventPending}; };
    for (int i = 0; i < 100; ++i) {
        std::thread person([] { Type("a"); });
        clock.SleepUnless(std::chrono::hours(1), pending);
        person.join();
        EXPECT_EQ(t_NextEvent(), 'a');
    }
    machine.Clock = &desktop;
    platform::Install(machine);
}
