#pragma once

#include "platform/panels.h"

namespace platform::desktop {

/// The panels, as dialogs of the program itself. Main thread.
class FilePanels : public Panels {
  public:
    std::vector<std::string> RunOpenPanel(const OpenPanel& panel) override;
    std::optional<std::string> RunSavePanel(const SavePanel& panel) override;
    std::int64_t RunAlert(const Alert& alert) override;
};

}  // namespace platform::desktop
