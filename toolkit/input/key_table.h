#pragma once

#include <cstdint>

namespace toolkit {

/// What the key table makes of a key press.
struct KeyResult {
    enum class Kind : std::uint8_t {
        Value,      // an event with the value Number
        CursorKey,  // the same, marked as a cursor key
        Redirect,   // text output is redirected to Number; no event
        Character,  // the general rule for the character Number
    };

    Kind What = Kind::Character;
    std::int64_t Number = 0;

    bool operator==(const KeyResult&) const = default;
};

/// Looks a key up. `keyCode` names the key's position, `k` is the code of its first character (0
/// without one), `modifierFlags` as platform::KeyPress. A key without a row, or whose row asks for
/// something else, gives its character. Any thread.
[[nodiscard]] KeyResult LookUpKey(std::int64_t keyCode, std::int64_t k,
                                  std::uint64_t modifierFlags);

}  // namespace toolkit
