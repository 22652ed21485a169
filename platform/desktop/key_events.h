#pragma once

#include <QtCore/Qt>
#include <cstdint>

#include "platform/parts/key_map.h"

class QKeyEvent;

// Reading keys and modifiers from the window library's events. Main thread.

namespace platform::desktop {

[[nodiscard]] parts::NativeKey NativeKeyOf(const QKeyEvent& event);

/// The modifiers of an event as bits of platform/input.h, without Caps Lock.
[[nodiscard]] std::uint64_t FlagsOf(Qt::KeyboardModifiers modifiers);

/// The modifiers that are held now, with Caps Lock where the display server tells.
[[nodiscard]] std::uint64_t FlagsHeldNow();

}  // namespace platform::desktop
