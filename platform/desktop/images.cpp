#include "platform/desktop/images.h"

#include <QtCore/QtEndian>

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

QImage ImageOf(const Picture& picture) {
    if (std::ssize(picture.Bytes) < 4 * picture.Width * picture.Height) return {};
    QImage image(static_cast<int>(picture.Width), static_cast<int>(picture.Height),
                 QImage::Format_RGB32);
    for (int row = 0; row < image.height(); ++row) {
        CopyRow(picture.Bytes.data() + 4 * picture.Width * row, image.scanLine(row), picture.Width,
                picture.Order);
    }
    return image;
}

}  // namespace platform::desktop
