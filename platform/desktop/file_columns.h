#pragma once

#include <QtWidgets/QStyledItemDelegate>

namespace platform::desktop {

/// Sizes and dates of a list of files as German readers write them, whatever the system's language;
/// the list's model is a QFileSystemModel. Main thread.
class FileColumns : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace platform::desktop
