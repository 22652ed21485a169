#pragma once

#include <QtCore/QTranslator>

namespace platform::desktop {

/// German words for what the window library says by itself: key names in menus, the panels for
/// files, the context menu of a text. Everything else stays as it is.
class German : public QTranslator {
  public:
    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char* context, const char* source, const char* comment,
                                    int count) const override;
};

/// A number of bytes as a German reader writes it, in the largest unit that it fills. Any thread.
[[nodiscard]] QString SizeText(qint64 bytes);

}  // namespace platform::desktop
