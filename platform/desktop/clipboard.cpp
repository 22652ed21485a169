#include "platform/desktop/clipboard.h"

#include <QtCore/QMimeData>
#include <QtCore/QtEndian>
#include <QtGui/QClipboard>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <cstring>

#include "platform/desktop/text.h"

namespace platform::desktop {

namespace {

// The pixels as numbers 0xAARRGGBB.
void CopyRow(const std::uint8_t* from, uchar* to, std::int64_t pixels, PixelOrder order) {
    if (order == PixelOrder::AlphaRedGreenBlue) {
        qFromBigEndian<quint32>(from, static_cast<qsizetype>(pixels), to);
    } else {
        qFromLittleEndian<quint32>(from, static_cast<qsizetype>(pixels), to);
    }
}

}  // namespace

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
    if (std::ssize(picture.Bytes) < 4 * picture.Width * picture.Height) return;
    QImage image(static_cast<int>(picture.Width), static_cast<int>(picture.Height),
                 QImage::Format_RGB32);
    for (int row = 0; row < image.height(); ++row) {
        CopyRow(picture.Bytes.data() + 4 * picture.Width * row, image.scanLine(row), picture.Width,
                picture.Order);
    }
    if (!image.isNull()) QGuiApplication::clipboard()->setImage(image);
}

}  // namespace platform::desktop
