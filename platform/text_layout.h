#pragma once

#include "platform/geometry.h"

namespace platform {

/// Where the parts of a text window stand in its content, in points. Each part has a place at the
/// lower left and leaves a fixed rest of the content's width and height.
///
/// A platform keeps to it exactly: the height of what stands above the content is measured at
/// launch as the frame's height less the scroll view's less RestOfHeight.
struct TextLayout {
    double Inset = 0;         // of the scroll view, from the left and from below
    double RestOfWidth = 0;   // the content is so much wider than the scroll view
    double RestOfHeight = 0;  // and so much higher
    double RulerInset = 0;    // of the ruler, from the left
    double RulerRest = 0;     // the content is so much wider than the ruler
    double RulerHeight = 0;   // 0: there is no ruler
    double RulerGap = 0;      // between the scroll view and the ruler above it
};

/// The scroll view in a content of width x height points.
[[nodiscard]] constexpr Rect TextPlace(const TextLayout& layout, double width, double height) {
    return {layout.Inset, layout.Inset, width - layout.RestOfWidth, height - layout.RestOfHeight};
}

/// The ruler in the same content.
[[nodiscard]] constexpr Rect RulerPlace(const TextLayout& layout, double width, double height) {
    const Rect text = TextPlace(layout, width, height);
    return {layout.RulerInset, text.Y + text.Height + layout.RulerGap, width - layout.RulerRest,
            layout.RulerHeight};
}

}  // namespace platform
