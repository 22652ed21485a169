#include "platform/desktop/clipboard.h"

#include <QtCore/QMimeData>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <chrono>

#include "platform/desktop/display.h"
#include "platform/desktop/images.h"
#include "platform/desktop/text.h"

namespace platform::desktop {

namespace {

constexpr std::chrono::milliseconds kPatience{300};

// The window library waits for seconds, and serves nothing meanwhile, when the program that owns
// the clipboard is stuck.
bool OwnerIsStuck(const QClipboard& clipboard) {
    return !clipboard.ownsClipboard() && QGuiApplication::platformName() == QLatin1String("xcb") &&
           !ClipboardOwnerAnswers(kPatience);
}

}  // namespace

std::optional<std::string> Clipboard::Text() {
    const QClipboard& clipboard = *QGuiApplication::clipboard();
    if (OwnerIsStuck(clipboard)) return std::nullopt;
    const QMimeData* const data = clipboard.mimeData();
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
