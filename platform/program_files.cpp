#include "platform/program_files.h"

#include <filesystem>
#include <system_error>

namespace platform {

namespace {

namespace fs = std::filesystem;

// The running program's file; empty where the system does not tell.
fs::path ProgramFile() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error);
}

fs::path FolderOfProgram() {
    const fs::path program = ProgramFile();
    return program.empty() ? fs::path(".") : program.parent_path();
}

// Each place once, the first to be taken first.
std::vector<std::string> ResourcePlaces() {
    const fs::path folder = FolderOfProgram();
    const fs::path share = (folder / ".." / "share").lexically_normal();
    std::vector<std::string> places = {(folder / "resources").string()};
    const std::string name = ProgramName();
    if (!name.empty() && name != "korvandi") places.push_back((share / name).string());
    places.push_back((share / "korvandi").string());
    return places;
}

}  // namespace

std::string ProgramFolder() {
    return FolderOfProgram().string();
}

std::string ProgramName() {
    return ProgramFile().filename().string();
}

ResourceFolder FindResourceFolder() {
    ResourceFolder searched;
    for (const std::string& place : ResourcePlaces()) {
        std::error_code error;
        if (fs::is_directory(place, error)) return {place, {}};
        searched.Searched.push_back(place);
    }
    searched.Path = searched.Searched.front();
    return searched;
}

}  // namespace platform
