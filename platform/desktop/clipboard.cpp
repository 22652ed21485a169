#include "platform/desktop/clipboard.h"

#include <QtCore/QMimeData>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <chrono>

#include "platform/desktop/clipboard_transfer.h"
#include "platform/desktop/images.h"
#include "platform/desktop/text.h"
#include "platform/main_queue.h"

namespace platform::desktop {

namespace {

constexpr std::chrono::milliseconds kPatience{90};
constexpr qsizetype kMostText = 8 << 20;

// The end of a text that was cut may be half a character.
std::string Shortened(QString text, bool cut) {
    cut = cut || text.size() > kMostText;
    if (!cut) return FromQt(text);
    text.truncate(kMostText);
    text.chop(1);
    return FromQt(text + QStringLiteral("\n… (gekürzt: die Zwischenablage enthält mehr)"));
}

// The window library waits for seconds, and serves nothing meanwhile, when the program that owns
// the clipboard is stuck or what it holds is large.
bool AskedBetterByUs(const QClipboard& clipboard) {
    return !clipboard.ownsClipboard() && QGuiApplication::platformName() == QLatin1String("xcb");
}

}  // namespace

std::optional<std::string> Clipboard::Text() {
    ExpectMain(__func__);
    const QClipboard& clipboard = *QGuiApplication::clipboard();
    if (AskedBetterByUs(clipboard)) {
        const ClipboardAnswer answer = AskClipboardText(kMostText, kPatience);
        if (!answer.Given) return std::nullopt;
        if (answer.Text) return Shortened(ToQt(*answer.Text), answer.Cut);
    }
    const QMimeData* const data = clipboard.mimeData();
    if (data == nullptr || !data->hasText()) return std::nullopt;
    return Shortened(data->text(), false);
}

void Clipboard::Clear() {
    ExpectMain(__func__);
    QGuiApplication::clipboard()->clear();
}

void Clipboard::SetText(std::string_view text) {
    ExpectMain(__func__);
    QGuiApplication::clipboard()->setText(ToQt(text));
}

void Clipboard::SetPicture(const Picture& picture) {
    ExpectMain(__func__);
    const QImage image = ImageOf(picture);
    if (!image.isNull()) QGuiApplication::clipboard()->setImage(image);
}

}  // namespace platform::desktop
