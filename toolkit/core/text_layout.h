#pragma once

#include "platform/text_layout.h"

// How the text windows 8 to 10 are laid out, in points.

namespace toolkit {

/// The pasteboard window, which has no ruler.
inline constexpr platform::TextLayout kPlainText = {
    .Inset = 10,
    .RestOfWidth = 20,
    .RestOfHeight = 20,
};

/// The virtual printer and the system console. The ruler begins where the text begins inside the
/// scroll view.
inline constexpr platform::TextLayout kRuledText = {
    .Inset = 20,
    .RestOfWidth = 40,
    .RestOfHeight = 55,
    .RulerInset = 24,
    .RulerRest = 48,
    .RulerHeight = 19,
    .RulerGap = 1,
};

/// What t_WindowSize leaves around the scroll view of any of them.
inline constexpr double kSizedTextRestOfWidth = 40;
inline constexpr double kSizedTextRestOfHeight = 77;

}  // namespace toolkit
