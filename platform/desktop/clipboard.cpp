#include "platform/desktop/clipboard.h"

#include <QtCore/QMimeData>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>

#include "platform/desktop/images.h"
#include "platform/desktop/text.h"

namespace platform::desktop {

std::optional<std::string> Clipboard::Text() {
    const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
    if (data == nullptr || !data->hasText()) return std::nullopt;
    return FromQt(data->text());
}

void Clipboard::Clear() {
    QGuiApplication::clipboard()->clear();
}

void Clipboard::SetText(std::string_view text) {
    QGuiApplication::clipboard()->setText(ToQt(text));
}

void Clipboard::SetPicture(const Picture& picture) {
    const QImage image = ImageOf(picture);
    if (!image.isNull()) QGuiApplication::clipboard()->setImage(image);
}

}  // namespace platform::desktop
