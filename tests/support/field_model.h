#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "toolkit/core/utf8.h"

/// What the line editor's field is to be: a string, an index and the rules of the input modes.
struct FieldModel {
    std::int64_t Mode = 0;
    std::size_t Most = 0;  // characters, by the maximum and by the room in the line
    std::u32string Content;
    std::size_t Cursor = 0;
    bool Finished = false;

    /// One key. `digits` are the keys that follow it, for the entry of a code by number.
    void Apply(std::int64_t key, std::string_view digits);

  private:
    [[nodiscard]] bool Accepts(char32_t c) const;
    void Insert(std::int64_t code);
    void InsertByNumber(std::string_view digits);
};
