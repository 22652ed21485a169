#pragma once

#include "platform/geometry.h"
#include "toolkit/core/shared.h"

namespace toolkit {

/// A rectangle whose sides one thread writes and others read. Whoever reads it meanwhile may see
/// old sides beside new ones.
struct SharedRect {
    SharedRect() = default;
    SharedRect(const platform::Rect& rect)
        : X(rect.X), Y(rect.Y), Width(rect.Width), Height(rect.Height) {}

    operator platform::Rect() const { return {X, Y, Width, Height}; }
    bool operator==(const SharedRect&) const = default;

    Shared<double> X = 0;
    Shared<double> Y = 0;
    Shared<double> Width = 0;
    Shared<double> Height = 0;
};

}  // namespace toolkit
