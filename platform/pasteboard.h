#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/picture.h"

namespace platform {

/// The desktop's general pasteboard (clipboard). Main thread. Texts are UTF-8 and pass unchanged,
/// carriage returns included.
class Pasteboard {
  public:
    virtual ~Pasteboard() = default;

    /// No value when the pasteboard holds no text. Of a text that is too long to come without a
    /// pause the first megabytes, and a line that says so.
    [[nodiscard]] virtual std::optional<std::string> Text() = 0;
    virtual void Clear() = 0;
    virtual void SetText(std::string_view text) = 0;
    virtual void SetPicture(const Picture& picture) = 0;
};

}  // namespace platform
