#pragma once

#include "toolkit/core/shared.h"

// The toolkit's two sounds. Any thread; both return at once.

namespace toolkit {

/// Whether sounds are heard; the person may switch them off.
extern constinit Shared<bool> SoundsOn;

}  // namespace toolkit

/// Plays "click.aif" of the resource directory, unless it is still playing. Without the file: the
/// desktop's beep.
void t_Click();

/// The same with "sysbeep.aif": the warning sound.
void t_SysBeep();
