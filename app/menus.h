#pragma once

#include "app/app_delegate.h"

/// Fills the installed platform's menu bar: the menu that bears the program's name, "Ablage",
/// "Bearbeiten" and "Fenster". An item's tag names its action; every choice of one goes to the
/// delegate. Items that can do nothing now are disabled. Main thread, once.
void BuildMenus(AppDelegate& delegate);
