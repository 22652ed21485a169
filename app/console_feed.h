#pragma once

#include <functional>
#include <string_view>

namespace platform {
class TextView;
}

/// How many lines the system console keeps.
inline constexpr int kConsoleLines = 10'000;

/// What brings printed text into a text view: a function for any thread that takes a text at the
/// cost of a copy; the main thread appends what has gathered when it gets to it. Text beyond what
/// the console keeps is dropped, oldest lines first.
[[nodiscard]] std::function<void(std::string_view)> MakeConsoleFeed(platform::TextView& view);
