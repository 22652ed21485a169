#include "platform/program_files.h"

#include <filesystem>
#include <system_error>

namespace platform {

namespace {

namespace fs = std::filesystem;

fs::path FolderOfProgram() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::path(".") : program.parent_path();
}

}  // namespace

std::string ProgramFolder() {
    return FolderOfProgram().string();
}

ResourceFolder FindResourceFolder() {
    const fs::path program = FolderOfProgram();
    const fs::path places[] = {
        program / "resources",
        (program / ".." / "share" / "korvandi").lexically_normal(),
    };
    ResourceFolder searched{places[0].string(), {}};
    for (const fs::path& place : places) {
        std::error_code error;
        if (fs::is_directory(place, error)) return {place.string(), {}};
        searched.Searched.push_back(place.string());
    }
    return searched;
}

}  // namespace platform
