#pragma once

#include <algorithm>
#include <functional>
#include <iterator>

// Questions to tables and other short lists. std::ranges asks them as well, but not every standard
// library that this is built with has its algorithms. Any thread.

namespace platform {

/// Whether one of `values` equals `value`.
template <typename Values, typename Value>
[[nodiscard]] constexpr bool Contains(const Values& values, const Value& value) {
    return std::find(std::begin(values), std::end(values), value) != std::end(values);
}

/// The first of `rows` whose member `field` equals `key`; nullptr where there is none. Rows stay
/// where they are, so the result lives as long as they do.
template <typename Rows, typename Field, typename Key>
[[nodiscard]] constexpr auto* RowWith(Rows& rows, Field field, const Key& key) {
    const auto fits = [&](const auto& row) { return std::invoke(field, row) == key; };
    const auto found = std::find_if(std::begin(rows), std::end(rows), fits);
    return found == std::end(rows) ? nullptr : &*found;
}

}  // namespace platform
