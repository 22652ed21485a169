#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "platform/system.h"

namespace platform {

namespace {

FileContent Unreadable(const std::error_code& error) {
    return {{}, error.message()};
}

}  // namespace

FileContent ReadFileFromDisk(const std::string& path) try {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::directory) {
        return Unreadable(std::make_error_code(std::errc::is_a_directory));
    }
    if (status.type() == std::filesystem::file_type::not_found) {
        return Unreadable(std::make_error_code(std::errc::no_such_file_or_directory));
    }
    if (error) return Unreadable(error);
    if (!std::filesystem::is_regular_file(status)) {
        return Unreadable(std::make_error_code(std::errc::not_supported));
    }
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    if (!file) return Unreadable(std::error_code(errno, std::generic_category()));
    const std::streamoff size = file.tellg();
    FileContent content;
    if (size > 0) {
        content.Bytes.resize(static_cast<std::size_t>(size));
        file.seekg(0);
        file.read(reinterpret_cast<char*>(content.Bytes.data()), size);
        if (file.gcount() != size) return Unreadable(std::make_error_code(std::errc::io_error));
    }
    return content;
} catch (const std::bad_alloc&) {
    return Unreadable(std::make_error_code(std::errc::not_enough_memory));
}

}  // namespace platform
