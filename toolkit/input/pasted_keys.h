#pragma once

#include <string>
#include <string_view>

#include "toolkit/window/window.h"

namespace toolkit {

/// The characters of a pasted line that may have an effect on the window's field when they arrive
/// as keys, one after the other and without a Return; the last one always. The field holds anything
/// by then, but its place, its maximum and its mode are those of now. What comes after an ESC that
/// ends the field is for somebody else and stays as it is. Program thread.
[[nodiscard]] std::string PastedKeys(const t_Window& w, std::string_view line);

}  // namespace toolkit
