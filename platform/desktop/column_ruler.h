#pragma once

#include <QtWidgets/QWidget>

class QPlainTextEdit;

namespace platform::desktop {

/// Counts the columns of a fixed-width text above the editor that shows it; moves with the text
/// when it is scrolled sideways. Main thread.
class ColumnRuler : public QWidget {
  public:
    ColumnRuler(QWidget& parent, QPlainTextEdit& editor);

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QPlainTextEdit& editor_;
};

}  // namespace platform::desktop
