#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Reading files.

/// The whole content of the file at `path`. Any thread. A file that cannot be read prints
///   "getbinaryfromfile: Error #<reason>"
/// and gives no bytes.
[[nodiscard]] std::vector<std::uint8_t> getbinaryfromfile(const std::string& path);
