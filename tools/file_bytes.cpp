#include "tools/file_bytes.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <system_error>

namespace tools {

std::optional<std::vector<std::uint8_t>> ReadFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::vector<std::uint8_t> bytes(std::istreambuf_iterator<char>(file), {});
    if (!file) {
        std::cerr << "Cannot read " << path << ".\n";
        return std::nullopt;
    }
    return bytes;
}

bool WriteFile(const std::string& path, std::span<const std::uint8_t> bytes) {
    std::error_code fault;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), fault);
    std::ofstream file(path, std::ios::binary);
    for (const std::uint8_t byte : bytes) file.put(static_cast<char>(byte));
    file.close();
    if (!file) std::cerr << "Cannot write " << path << ".\n";
    return static_cast<bool>(file);
}

}  // namespace tools
