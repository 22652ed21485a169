#pragma once

#include <functional>
#include <vector>

#include "platform/desktop/host_window.h"

class QVBoxLayout;

namespace platform::desktop {

/// A window with a column of labels and controls, as large as they need. Main thread.
class FormWindow : public HostWindow {
  public:
    FormWindow(QString title, std::vector<FormRow> rows);

  private:
    struct Condition {
        QWidget* Control = nullptr;
        std::function<bool()> Enabled;
    };

    [[nodiscard]] QSize FirstSize() override;
    void Fill(QWidget& content) override;
    void ContentDidResize(QSize before) override;
    void WillShow() override;

    void MakeForm();
    void Add(QVBoxLayout& column, const FormRow& row);

    std::vector<FormRow> rows_;
    std::vector<Condition> conditions_;
    QWidget* form_ = nullptr;  // made when its size is asked for
};

}  // namespace platform::desktop
