#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/input.h"

// From a key of the desktop to a key press of the toolkit. Any thread; no state.
//
// The position of a key decides its key code, the layout decides its characters. Keys that have a
// meaning of their own (arrows, Home, function keys) have it whatever position they stand at.

namespace platform::parts {

/// A key press as the display server reports it.
struct NativeKey {
    std::uint32_t ScanCode = 0;  // position: the kernel's key number + 8; 0 when it is not known
    std::uint32_t Symbol = 0;    // what the layout makes of it, as an X key symbol
    std::string Text;            // the characters that the layout makes of it, UTF-8
    std::uint64_t Flags = 0;     // held modifiers: bits of platform/input.h
};

/// The key press to deliver; no value for a key that delivers none: modifiers, locks, media keys.
[[nodiscard]] std::optional<KeyPress> MapKey(const NativeKey& key);

/// The bit of the modifier that the key with this symbol sets while it is held; 0 for other keys.
[[nodiscard]] std::uint64_t ModifierOfSymbol(std::uint32_t symbol);

}  // namespace platform::parts
