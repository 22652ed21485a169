#pragma once

// Places on the screen. All values are points, floating point; the origin is the lower left corner
// of the screen (windows) or of the enclosing window or view (views), and y grows upwards.

namespace platform {

struct Rect {
    double X = 0;
    double Y = 0;
    double Width = 0;
    double Height = 0;

    bool operator==(const Rect&) const = default;
};

}  // namespace platform
