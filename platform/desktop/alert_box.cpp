#include "platform/desktop/alert_box.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

#include "platform/desktop/text.h"

namespace platform::desktop {

std::int64_t RunAlertBox(const Alert& alert) {
    QMessageBox box(QApplication::activeWindow());
    box.setWindowTitle(QStringLiteral("Hinweis"));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQt(alert.Message));
    box.setInformativeText(ToQt(alert.Details));
    QList<QPushButton*> buttons;
    for (const std::string& title : alert.Buttons) {
        buttons << box.addButton(ToLabel(title), QMessageBox::ActionRole);
    }
    const std::int64_t last = std::ssize(alert.Buttons) - 1;
    if (!buttons.isEmpty()) {
        box.setDefaultButton(buttons.front());
        box.setEscapeButton(buttons.back());
    }
    box.exec();
    for (qsizetype i = 0; i < buttons.size(); ++i) {
        if (buttons[i] == box.clickedButton()) return i;
    }
    return last;
}

}  // namespace platform::desktop
