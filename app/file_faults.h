#pragma once

#include <string>
#include <system_error>

/// Why a file could not be read or written, as a German sentence for the person; for a reason that
/// is not among the usual ones the system's own words. Any thread.
[[nodiscard]] std::string FileFault(const std::error_code& reason);
