#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/pasteboard.h"
#include "platform/picture.h"

namespace platform::desktop {

/// The desktop's clipboard. Main thread.
class Clipboard : public Pasteboard {
  public:
    [[nodiscard]] std::optional<std::string> Text() override;
    void Clear() override;
    void SetText(std::string_view text) override;
    void SetPicture(const Picture& picture) override;
};

}  // namespace platform::desktop
