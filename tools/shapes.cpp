#include "tools/shapes.h"

#include <cmath>
#include <iterator>

namespace tools {

bool InDisc(double x, double y, double centreX, double centreY, double radius) {
    const double dx = x - centreX;
    const double dy = y - centreY;
    return dx * dx + dy * dy <= radius * radius;
}

bool InRoundCorner(double x, double y, double width) {
    constexpr double kRadius = kMiddleX - 1;
    constexpr double kCentreX = kMiddleX + kRadius;
    constexpr double kCentreY = kMiddleY + kRadius;
    if (y > kCentreY) return x >= kMiddleX - width / 2 && x <= kMiddleX + width / 2;
    if (x > kCentreX) return y >= kMiddleY - width / 2 && y <= kMiddleY + width / 2;
    return InDisc(x, y, kCentreX, kCentreY, kRadius + width / 2) &&
           !InDisc(x, y, kCentreX, kCentreY, kRadius - width / 2);
}

bool InArrow(double along, double across, double length, double width) {
    const double headLength = 6.5 + width / 2;
    const double headHalfWidth = 4.5 + width * 0.75;
    const double toTip = length - along;
    const double fromAxis = std::abs(across);
    if (along < 0 || toTip < 0) return false;
    if (toTip <= headLength) return fromAxis <= headHalfWidth * toTip / headLength;
    return fromAxis <= width / 2;
}

bool InStar(double x, double y) {
    struct Point {
        double X, Y;
    };
    constexpr double kRadius = 8.2;
    constexpr double kCentreY = kMiddleY + 0.8;
    constexpr Point kCorners[] = {
        {0, -1},                 // top
        {0.224514, -0.309017},   // notch
        {0.951057, -0.309017},   // right
        {0.363271, 0.118034},    // notch
        {0.587785, 0.809017},    // lower right
        {0, 0.381966},           // notch
        {-0.587785, 0.809017},   // lower left
        {-0.363271, 0.118034},   // notch
        {-0.951057, -0.309017},  // left
        {-0.224514, -0.309017},  // notch
    };
    const double px = (x - kMiddleX) / kRadius;
    const double py = (y - kCentreY) / kRadius;
    bool inside = false;
    const Point* last = &kCorners[std::size(kCorners) - 1];
    for (const Point& corner : kCorners) {
        const bool crosses = (corner.Y > py) != (last->Y > py);
        if (crosses) {
            const double slope = (last->X - corner.X) / (last->Y - corner.Y);
            if (px < corner.X + slope * (py - corner.Y)) inside = !inside;
        }
        last = &corner;
    }
    return inside;
}

bool InHeart(double x, double y) {
    // Two lobes, their middles at this height and this far from the axis.
    constexpr double kRadius = 3.8;
    constexpr double kLobeX = 3.7;
    constexpr double kLobeY = 12.6;
    // Two lines from the tip, with this slope across over down, touch the lobes at this height.
    constexpr double kTipY = 22.6;
    constexpr double kLineSlope = 0.875;
    constexpr double kTouchY = 15.1;
    const double fromAxis = std::abs(x - kMiddleX);
    if (InDisc(fromAxis, y, kLobeX, kLobeY, kRadius)) return true;
    if (y < kLobeY) return false;
    return fromAxis <= (y < kTouchY ? kLobeX : kLineSlope * (kTipY - y));
}

bool InDiagonal(double x, double y, double width) {
    const double off = y - (kCellHeight - kSlope * x);
    return off * off <= width * width / 4 * (1 + kSlope * kSlope);
}

bool InLattice(double x, double y, double width) {
    constexpr double kRootOfTwo = 1.41421356;
    const auto near = [&](double sum) {
        const int lines = static_cast<int>(sum / kPeriod);
        const double off = sum - kPeriod * lines - kPeriod / 2.0;
        return std::abs(off) <= width * kRootOfTwo / 2;
    };
    return near(x + y) || near(x + kCellHeight - y);
}

}  // namespace tools
