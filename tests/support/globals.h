#pragma once

/// Puts every global of the toolkit back to what it is when the process starts, but for those that
/// tests/tools/globals_test.sh names. While no thread of the toolkit runs.
void ResetGlobals();
