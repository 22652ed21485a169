#include "platform/desktop/file_panels.h"

#include <QtCore/QFileInfo>
#include <QtCore/QSettings>
#include <QtCore/QStringList>
#include <QtGui/QFileSystemModel>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QTreeView>

#include "platform/desktop/alert_box.h"
#include "platform/desktop/file_columns.h"
#include "platform/desktop/text.h"
#include "platform/main_queue.h"

namespace platform::desktop {

namespace {

// In points: room for all columns of the list.
constexpr int kWidth = 780;
constexpr int kHeight = 480;

QStringList Patterns(const std::vector<std::string>& fileTypes) {
    QStringList patterns;
    for (const std::string& type : fileTypes) {
        const QString extension = ToQt(type).trimmed();
        if (!extension.isEmpty()) patterns << QLatin1String("*.") + extension;
    }
    return patterns;
}

QStringList Filters(const std::vector<std::string>& fileTypes, bool othersToo) {
    const QString all = QStringLiteral("Alle Dateien (*)");
    const QStringList patterns = Patterns(fileTypes);
    if (patterns.isEmpty()) return {all};
    const bool texts = patterns == QStringList(QStringLiteral("*.txt"));
    const QString name = texts ? QStringLiteral("Textdateien") : QStringLiteral("Passende Dateien");
    QStringList filters{QStringLiteral("%1 (%2)").arg(name, patterns.join(u' '))};
    if (othersToo) filters << all;
    return filters;
}

// Puts the message above everything else in the dialog.
void AddMessage(QFileDialog& dialog, const std::string& message) {
    auto* const grid = qobject_cast<QGridLayout*>(dialog.layout());
    if (message.empty() || grid == nullptr) return;
    auto* const label = new QLabel(ToQt(message));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    auto* const above = new QVBoxLayout;
    above->addWidget(label);
    above->setContentsMargins(0, 0, 0, dialog.fontMetrics().height() / 2);
    // A grid takes no row in front of its first: what stands in it moves down by one.
    struct Cell {
        QLayoutItem* Item = nullptr;
        int Row = 0, Column = 0, Rows = 0, Columns = 0;
    };
    std::vector<Cell> cells;
    while (grid->count() > 0) {
        Cell cell;
        grid->getItemPosition(0, &cell.Row, &cell.Column, &cell.Rows, &cell.Columns);
        cell.Item = grid->takeAt(0);
        cells.push_back(cell);
    }
    for (const Cell& cell : cells) {
        grid->addItem(cell.Item, cell.Row + 1, cell.Column, cell.Rows, cell.Columns);
    }
    grid->addLayout(above, 0, 0, 1, grid->columnCount());
}

void SetUp(QFileDialog& dialog, const std::string& title, const std::string& message,
           const std::string& prompt, const std::string& nameLabel) {
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setWindowTitle(ToQt(title));
    dialog.setLabelText(QFileDialog::Accept, ToLabel(prompt));
    dialog.setLabelText(QFileDialog::Reject, QStringLiteral("Abbrechen"));
    const bool saves = dialog.acceptMode() == QFileDialog::AcceptSave;
    dialog.setLabelText(QFileDialog::LookIn,
                        saves ? QStringLiteral("Sichern in:") : QStringLiteral("Suchen in:"));
    dialog.setLabelText(QFileDialog::FileType, QStringLiteral("Dateityp:"));
    dialog.setLabelText(QFileDialog::FileName, ToLabel(nameLabel));
    AddMessage(dialog, message);
    if (auto* const list = dialog.findChild<QTreeView*>(); list != nullptr) {
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        list->setItemDelegate(new FileColumns(list));
    }
    dialog.resize(kWidth, kHeight);
}

QFileDialog::FileMode Mode(const OpenPanel& panel) {
    if (panel.FoldersAllowed) return QFileDialog::Directory;
    return panel.SeveralAllowed ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile;
}

// The dialog itself offers a choice of one folder.
void AllowSeveralFolders(QFileDialog& dialog) {
    for (auto* const view : dialog.findChildren<QAbstractItemView*>()) {
        const bool lists = qobject_cast<QFileSystemModel*>(view->model()) != nullptr;
        if (lists) view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    }
}

}  // namespace

// The dialogs of the window library keep the folders that were visited in the person's settings;
// at a place that is no folder they find and leave none.
FilePanels::FilePanels() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

std::vector<std::string> FilePanels::RunOpenPanel(const OpenPanel& panel) {
    ExpectMain(__func__);
    QFileDialog dialog(QApplication::activeWindow(), {}, folder_);
    dialog.setFileMode(Mode(panel));
    dialog.setOption(QFileDialog::ShowDirsOnly, !panel.FilesAllowed);
    dialog.setNameFilters(Filters(panel.FileTypes, false));
    if (panel.FoldersAllowed && panel.SeveralAllowed) AllowSeveralFolders(dialog);
    SetUp(dialog, panel.Title, panel.Message, panel.Prompt,
          panel.FoldersAllowed ? "Ordner:" : "Datei:");
    return Run(dialog);
}

std::optional<std::string> FilePanels::RunSavePanel(const SavePanel& panel) {
    ExpectMain(__func__);
    QFileDialog dialog(QApplication::activeWindow(), {}, folder_);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters(Filters(panel.FileTypes, true));
    // A name without an extension gets the first of them.
    if (const QStringList patterns = Patterns(panel.FileTypes); !patterns.isEmpty()) {
        dialog.setDefaultSuffix(patterns.front().mid(2));
    }
    dialog.selectFile(ToQt(panel.PresetName));
    SetUp(dialog, panel.Title, panel.Message, panel.Prompt, panel.NameLabel);
    const std::vector<std::string> paths = Run(dialog);
    if (paths.empty()) return std::nullopt;
    return paths.front();
}

std::vector<std::string> FilePanels::Run(QFileDialog& dialog) {
    std::vector<std::string> paths;
    if (dialog.exec() != QDialog::Accepted) return paths;
    for (const QString& path : dialog.selectedFiles()) {
        paths.push_back(FromQt(path.normalized(QString::NormalizationForm_C)));
        const QString folder = QFileInfo(path).absolutePath();
        if (QFileInfo(folder).isDir()) folder_ = folder;
    }
    return paths;
}

std::int64_t FilePanels::RunAlert(const Alert& alert) {
    ExpectMain(__func__);
    return RunAlertBox(alert);
}

}  // namespace platform::desktop
