#pragma once

#include <QtCore/QString>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/panels.h"

class QFileDialog;

namespace platform::desktop {

/// The panels, as dialogs of the program itself. They begin in the folder from which the last file
/// was chosen, at first in the working directory, and leave no file behind. Main thread.
class FilePanels : public Panels {
  public:
    FilePanels();
    std::vector<std::string> RunOpenPanel(const OpenPanel& panel) override;
    std::optional<std::string> RunSavePanel(const SavePanel& panel) override;
    std::int64_t RunAlert(const Alert& alert) override;

  private:
    std::vector<std::string> Run(QFileDialog& dialog);

    QString folder_;  // empty: none was chosen yet
};

}  // namespace platform::desktop
