#include "toolkit/core/sounds.h"

#include "tests/support/fixture.h"

using SoundTests = ToolkitTest;

TEST_F(SoundTests, ASoundThatStillPlaysIsNotStartedAgain) {
    desktop.SoundFiles = {{"click.aif", true}, {"sysbeep.aif", true}};
    desktop.SoundsLast = true;
    t_Click();
    t_Click();
    t_SysBeep();
    EXPECT_EQ(desktop.Played(), (std::vector<std::string>{"click.aif", "sysbeep.aif"}));
    desktop.SoundsLast = false;
    t_Click();
    EXPECT_EQ(desktop.Played().back(), "click.aif");
    EXPECT_EQ(desktop.Played().size(), 3U);
}
