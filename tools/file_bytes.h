#pragma once

// Whole files as bytes.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tools {

/// All bytes of a file, or no value after one fault line on standard error.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> ReadFile(const std::string& path);

/// Writes a file, and makes the folder it lies in. Whether all was written; if not, after one
/// fault line on standard error.
[[nodiscard]] bool WriteFile(const std::string& path, std::span<const std::uint8_t> bytes);

}  // namespace tools
