#pragma once

#include <string>

namespace platform {

/// Appends the character as UTF-8, one byte to four. `character` is a Unicode scalar value: 0 to
/// 0x10FFFF without the surrogates. Any thread.
void AppendUtf8(std::string& text, char32_t character);

}  // namespace platform
