#include "platform/menu.h"

#include <gtest/gtest.h>

TEST(PlatformMenus, AreFoundByTitleAndTellOfEveryChange) {
    platform::MenuBar bar;
    bar.Add("Ablage").AddSeparator();  // nobody is told yet
    int changes = 0;
    bar.Changed = [&] { ++changes; };
    platform::Menu& menu = bar.Add("Fenster");
    platform::MenuItem& first = menu.Add({});
    menu.AddSeparator();
    platform::MenuItem& last = menu.Add({});
    EXPECT_EQ(changes, 4);
    EXPECT_EQ(bar.Find("Fenster"), &menu);
    EXPECT_EQ(bar.Find("fenster"), nullptr);
    EXPECT_EQ(menu.ItemAt(0), &first);
    EXPECT_EQ(first.Owner, &menu);
    EXPECT_TRUE(menu.ItemAt(1)->Separator);
    for (const std::int64_t position : {-1, 3, 65'535}) {
        EXPECT_EQ(menu.ItemAt(position), nullptr);
        menu.RemoveItemAt(position);
    }
    EXPECT_EQ(changes, 4);
    menu.RemoveItemAt(1);
    EXPECT_EQ(changes, 5);
    EXPECT_EQ(menu.NumberOfItems(), 2);
    EXPECT_EQ(menu.ItemAt(1), &last);  // the others stay where they are in memory
}
