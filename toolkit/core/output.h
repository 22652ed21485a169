#pragma once

#include <concepts>
#include <functional>
#include <string>
#include <string_view>

// Log and fault lines on the program's standard output. Any thread: a line is written whole, and
// lines appear in the order in which they were printed.

namespace toolkit {

/// Writes `text` as it is, in one piece. It is seen at once.
void PrintPiece(std::string_view text);

/// Has every text that is printed from now on also handed to `listener`, on the printing thread. It
/// must return soon and print nothing. Before any other thread runs.
void SetOutputListener(std::function<void(std::string_view text)> listener);

namespace detail {

inline void Append(std::string& line, std::string_view part) {
    line += part;
}

template <std::integral Number>
void Append(std::string& line, Number number) {
    line += std::to_string(number);
}

}  // namespace detail

/// The parts one after the other; whole numbers in decimal.
template <typename... Parts>
[[nodiscard]] std::string Joined(const Parts&... parts) {
    std::string text;
    (detail::Append(text, parts), ...);
    return text;
}

/// Prints the parts and a line end as one line.
template <typename... Parts>
void PrintLine(const Parts&... parts) {
    PrintPiece(Joined(parts..., "\n"));
}

}  // namespace toolkit
