#pragma once

#include "app/app_delegate.h"

/// Builds the application's windows and menus on the installed platform and connects them to the
/// delegate's outlets. Main thread, once per platform, before the application runs.
void BuildInterface(AppDelegate& delegate);
