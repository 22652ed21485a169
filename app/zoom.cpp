#include "app/zoom.h"

#include <cmath>

namespace {

std::int64_t Percent(const platform::Window& window) {
    return std::llround(window.Zoom() * 100);
}

}  // namespace

void SetZoomPercent(platform::Window& window, std::int64_t percent) {
    window.SetZoom(static_cast<double>(percent) / 100);
}

void ZoomToFit(platform::Window& window) {
    window.SetZoom(window.LargestZoom());
}

void ZoomIn(platform::Window& window) {
    for (const std::int64_t percent : kZoomsInPercent) {
        if (percent > Percent(window)) return SetZoomPercent(window, percent);
    }
}

void ZoomOut(platform::Window& window) {
    std::int64_t smaller = 0;
    for (const std::int64_t percent : kZoomsInPercent) {
        if (percent < Percent(window)) smaller = percent;
    }
    if (smaller != 0) SetZoomPercent(window, smaller);
}
