#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/picture.h"

namespace platform {

/// The desktop's general pasteboard (clipboard). Main thread. Texts are UTF-8 and pass unchanged,
/// carriage returns included. Optional: as it stands it holds nothing.
class Pasteboard {
  public:
    virtual ~Pasteboard() = default;

    /// No value when the pasteboard holds no text. Of a text that is too long to come without a
    /// pause the first megabytes, and a line that says so.
    [[nodiscard]] virtual std::optional<std::string> Text() { return std::nullopt; }
    virtual void Clear() {}
    /// Both replace all that the pasteboard held. A picture without pixels, or with fewer bytes
    /// than its size asks for, does nothing.
    virtual void SetText(std::string_view /*text*/) {}
    virtual void SetPicture(const Picture& /*picture*/) {}
};

}  // namespace platform
