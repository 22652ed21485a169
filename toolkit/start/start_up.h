#pragma once

/// Second-stage set-up: memory, window table, menu actions, menus, pasteboard view. The first call
/// does the work, later calls return at once. Any thread, normally the program thread. Logs
///   "t_InitMemory: Start."  "t_InitMemory: End."
/// and the lines of the menu clean-up.
void t_InitMemory();

namespace toolkit {

/// Makes sure that t_InitMemory was called and waits until the toolkit is ready.
void WaitForTools();

}  // namespace toolkit
