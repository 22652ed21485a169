#pragma once

#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QTimer>
#include <vector>

#include "platform/desktop/host_window.h"
#include "platform/window.h"

class QVBoxLayout;

namespace platform::desktop {

/// A window with a column of labels and controls, as large as they need now. Main thread.
class FormWindow : public HostWindow {
  public:
    FormWindow(Desk& desk, QString title, std::vector<FormRow> rows);

  private:
    struct LiveRow {
        const FormRow* Row = nullptr;
        QWidget* Control = nullptr;
    };

    [[nodiscard]] QSize FirstSize() override;
    void Fill(QWidget& content) override;
    void ContentDidResize(QSize before) override;
    void WillShow() override;

    void Refresh();
    void FitContent();
    void MakeForm();
    void Add(QVBoxLayout& column, const FormRow& row);

    std::vector<FormRow> rows_;
    std::vector<LiveRow> live_;
    QTimer refresh_;           // runs while the window is visible
    QWidget* form_ = nullptr;  // made when its size is asked for
};

}  // namespace platform::desktop
