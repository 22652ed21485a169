#pragma once

/// Shows name, version, licence and a sentence on what the program is. Main thread; waits for the
/// person.
void ShowAbout();
