#pragma once

/// Fills the installed platform's menu bar: the program's own menu, "Ablage", "Bearbeiten" and
/// "Fenster". An item's tag names its action; every choice goes to the delegate. Main thread, once.
void BuildMenus();
