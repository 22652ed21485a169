#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace platform {
struct Picture;
}

/// Writes a picture as a file; false when that failed.
using PictureSaver = std::function<bool(const platform::Picture& picture, const std::string& path)>;

/// Shows the program `program`, called `name`, where there is no screen: plays it on a desktop in
/// memory, with a person who starts it, watches, ends it and answers, and saves pictures of every
/// stage in the folder "<name in lower case>-bilder" of the current folder. Prints what it does, in
/// German. Instead of RunProgram. False when the program showed nothing, as it does when it could
/// not be started, or a picture could not be written.
[[nodiscard]] bool PlayOnVirtualScreen(std::string_view name, std::function<void()> program,
                                       PictureSaver save);
