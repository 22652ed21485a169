#include "platform/desktop/seam_rect.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <algorithm>
#include <cmath>

namespace platform::desktop {

namespace {

// The seam's origin is the lower left corner of the first screen.
QPoint Origin() {
    const QRect screen = QGuiApplication::primaryScreen()->geometry();
    return {screen.left(), screen.top() + screen.height()};
}

int Whole(double value) {
    constexpr double kLargest = 1 << 20;
    return static_cast<int>(std::lround(std::clamp(value, -kLargest, kLargest)));
}

}  // namespace

Rect ToSeam(const QRect& rect) {
    const QPoint origin = Origin();
    return {static_cast<double>(rect.left() - origin.x()),
            static_cast<double>(origin.y() - rect.top() - rect.height()),
            static_cast<double>(rect.width()), static_cast<double>(rect.height())};
}

QRect FromSeam(const Rect& rect) {
    const QPoint origin = Origin();
    return {origin.x() + Whole(rect.X), origin.y() - Whole(rect.Y) - Whole(rect.Height),
            Whole(rect.Width), Whole(rect.Height)};
}

}  // namespace platform::desktop
