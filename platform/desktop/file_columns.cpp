#include "platform/desktop/file_columns.h"

#include <QtGui/QFileSystemModel>

#include "platform/desktop/german.h"

namespace platform::desktop {

namespace {

// Of the model's columns.
constexpr int kSize = 1;
constexpr int kModified = 3;

}  // namespace

void FileColumns::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    const auto* const files = qobject_cast<const QFileSystemModel*>(index.model());
    if (files == nullptr) return;
    if (index.column() == kSize && !files->isDir(index)) {
        option->text = SizeText(files->size(index));
    }
    if (index.column() == kModified) {
        option->text = files->lastModified(index).toString(QStringLiteral("dd.MM.yyyy, HH:mm"));
    }
}

}  // namespace platform::desktop
