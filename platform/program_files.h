#pragma once

#include <string>
#include <vector>

// Where the files of the running program lie on the disk. Any thread.

namespace platform {

/// The folder of the running program's file, without a slash at the end.
[[nodiscard]] std::string ProgramFolder();

/// The name of the running program's file, without its folder; empty where the system does not tell.
[[nodiscard]] std::string ProgramName();

/// The folder that holds the program's resource files.
struct ResourceFolder {
    std::string Path;                   // where it is; where it would be first, if it is nowhere
    std::vector<std::string> Searched;  // the folders that were looked for in vain; none if it is
};

/// Looks for a folder "resources" beside the program, as a build leaves it, then for the program's
/// own shared data, ../share/<name of its file> seen from its folder, then for the toolkit's,
/// ../share/korvandi. The first that is there is taken, whatever it holds.
[[nodiscard]] ResourceFolder FindResourceFolder();

}  // namespace platform
