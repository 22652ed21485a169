#pragma once

/// Fills the installed platform's menu bar: the menu that bears the program's name, "Ablage",
/// "Bearbeiten" and "Fenster". An item's tag names its action; every choice goes to the delegate.
/// Main thread, once.
void BuildMenus();
