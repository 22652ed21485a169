#include "platform/desktop/placing.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <algorithm>
#include <cmath>
#include <cstdint>

namespace platform::desktop {

namespace {

// How much of a title bar must be seen, in points.
constexpr int kGripWidth = 80;

std::int64_t Area(const QRect& rect) {
    return rect.isValid() ? std::int64_t{rect.width()} * rect.height() : 0;
}

const QScreen* ScreenShowing(const QRect& frame) {
    const QScreen* most = nullptr;
    std::int64_t shown = 0;
    for (const QScreen* const screen : QGuiApplication::screens()) {
        const std::int64_t area = Area(screen->geometry() & frame);
        if (area > shown) most = screen;
        shown = std::max(shown, area);
    }
    return most;
}

// The upper bound counts less where both cannot hold.
int Between(int value, int lowest, int highest) {
    return std::max(std::min(value, highest), lowest);
}

double Ratio(int part, int whole) {
    return static_cast<double>(part) / whole;
}

}  // namespace

QRect RoomFor(const QRect& frame, const QMargins& borders, const QScreen* otherwise) {
    const QScreen* screen = ScreenShowing(frame);
    if (screen == nullptr) screen = otherwise;
    if (screen == nullptr) screen = QGuiApplication::primaryScreen();
    return screen->availableGeometry().marginsRemoved(
        {borders.left(), 0, borders.right(), borders.bottom()});
}

QSize Zoomed(const QSize& content, double zoom) {
    const auto size = [zoom](int side) {
        return std::max(static_cast<int>(std::lround(side * zoom)), 1);
    };
    return {size(content.width()), size(content.height())};
}

double LargestZoomIn(const QRect& room, const QSize& content, int above) {
    return std::min(Ratio(std::max(room.width(), 1), content.width()),
                    Ratio(std::max(room.height() - above, 1), content.height()));
}

bool CanBePulled(const QRect& frame, int grip) {
    const QRect bar(frame.topLeft(), QSize(frame.width(), grip));
    return std::ranges::any_of(QGuiApplication::screens(), [&](const QScreen* screen) {
        const QRect seen = bar & screen->availableGeometry();
        return seen.height() == grip && seen.width() >= std::min(kGripWidth, frame.width());
    });
}

QRect BroughtBack(const QRect& frame, const QRect& room, int grip) {
    if (CanBePulled(frame, grip)) return frame;
    const int width = std::min(kGripWidth, frame.width());
    const int rightmost = room.left() + room.width() - width;
    const int lowest = room.top() + room.height() - grip;
    return {QPoint(Between(frame.left(), room.left() + width - frame.width(), rightmost),
                   Between(frame.top(), room.top(), lowest)),
            frame.size()};
}

QRect MovedInto(const QRect& room, const QRect& frame) {
    const QSize spare = room.size() - frame.size();
    return {QPoint(Between(frame.left(), room.left(), room.left() + spare.width()),
                   Between(frame.top(), room.top(), room.top() + spare.height())),
            frame.size()};
}

QRect AboutCentreOf(const QRect& frame, const QSize& size, const QRect& room) {
    const QRect seen = frame.intersects(room) ? frame & room : frame;
    const QSize less = seen.size() - size;
    return MovedInto(room, {seen.topLeft() + QPoint(less.width() / 2, less.height() / 2), size});
}

QPoint Way(const QRect& from, const QRect& to) {
    const QSize grown = to.size() - from.size();
    return to.topLeft() - from.topLeft() + QPoint(grown.width() / 2, grown.height() / 2);
}

double PulledZoom(const QSize& content, const QRect& from, const QRect& to) {
    const double wider = std::abs(Ratio(to.width(), from.width()) - 1);
    const double higher = std::abs(Ratio(to.height(), from.height()) - 1);
    return wider >= higher ? Ratio(to.width(), content.width())
                           : Ratio(to.height(), content.height());
}

QRect KeepingSides(const QRect& from, const QRect& to, const QSize& size) {
    QRect kept(to.topLeft(), size);
    if (to.left() != from.left() && to.right() == from.right()) kept.moveRight(to.right());
    if (to.top() != from.top() && to.bottom() == from.bottom()) kept.moveBottom(to.bottom());
    return kept;
}

void WatchScreens(const std::function<void()>& changed) {
    const auto watch = [changed](const QScreen* screen) {
        QObject::connect(screen, &QScreen::availableGeometryChanged, changed);
    };
    for (const QScreen* const screen : QGuiApplication::screens()) watch(screen);
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, watch);
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, changed);
}

}  // namespace platform::desktop
