#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <system_error>
#include <utility>

#include "platform/system.h"

namespace platform {

namespace {

namespace fs = std::filesystem;

std::error_code SystemError() {
    return {errno, std::generic_category()};
}

FileContent Unreadable(const std::error_code& error) {
    return {{}, error};
}

// The file that the path means in the end; it need not exist.
fs::path BehindLinks(fs::path path, std::error_code& error) {
    constexpr int kMostLinks = 40;
    for (int links = 0; fs::is_symlink(fs::symlink_status(path, error)); ++links) {
        if (links == kMostLinks)
            error = std::make_error_code(std::errc::too_many_symbolic_link_levels);
        if (error) break;
        path = path.parent_path() / fs::read_symlink(path, error);
    }
    if (error == std::errc::no_such_file_or_directory) error.clear();
    return path;
}

// A new file that becomes another one's content, or goes without a trace.
class Replacement {
  public:
    explicit Replacement(fs::path target) : target_(std::move(target)) {}
    ~Replacement() {
        if (descriptor_ >= 0) close(descriptor_);
        if (made_) unlink(path_.c_str());
    }
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;

    std::error_code Make() {
        const std::error_code error = LookAtTarget();
        if (error) return error;
        // Nobody else reads what may be secret before the file has its final permissions.
        const mode_t mode = exists_ ? 0600 : 0666;
        do {
            path_ = target_.parent_path() / NewName();
            descriptor_ = open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        } while (descriptor_ < 0 && errno == EEXIST);
        made_ = descriptor_ >= 0;
        return made_ ? std::error_code() : SystemError();
    }

    std::error_code Write(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t written = write(descriptor_, bytes.data(), bytes.size());
            if (written < 0 && errno != EINTR) return SystemError();
            if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return {};
    }

    std::error_code TakePlace() {
        if (exists_ && !MakeAlike()) return SystemError();
        if (fsync(descriptor_) != 0) return SystemError();
        if (close(std::exchange(descriptor_, -1)) != 0) return SystemError();
        if (rename(path_.c_str(), target_.c_str()) != 0) return SystemError();
        made_ = false;
        return {};
    }

  private:
    std::error_code LookAtTarget() {
        exists_ = stat(target_.c_str(), &before_) == 0;
        if (!exists_) return errno == ENOENT ? std::error_code() : SystemError();
        if (S_ISDIR(before_.st_mode)) return std::make_error_code(std::errc::is_a_directory);
        if (!S_ISREG(before_.st_mode)) return std::make_error_code(std::errc::not_supported);
        return access(target_.c_str(), W_OK) == 0 ? std::error_code() : SystemError();
    }

    // Owner and permissions; only the system's administrator may give a file away.
    [[nodiscard]] bool MakeAlike() const {
        constexpr auto kSameOwner = static_cast<uid_t>(-1);
        constexpr auto kSameGroup = static_cast<gid_t>(-1);
        const bool group = fchown(descriptor_, kSameOwner, before_.st_gid) == 0;
        static_cast<void>(!fchown(descriptor_, before_.st_uid, kSameGroup));
        // What a group was allowed is nothing for another group.
        return fchmod(descriptor_, before_.st_mode & (group ? 0777U : 0707U)) == 0;
    }

    static std::string NewName() {
        std::array<char, 8> digits{};
        std::random_device chance;
        const auto end = std::to_chars(digits.begin(), digits.end(), chance(), 16).ptr;
        return ".neu-" + std::string(digits.begin(), end);
    }

    const fs::path target_;
    fs::path path_;
    int descriptor_ = -1;
    bool made_ = false;
    bool exists_ = false;  // the file whose place is taken, as `before_` tells
    struct stat before_ {};
};

}  // namespace

FileContent ReadFileFromDisk(const std::string& path) try {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::directory) {
        return Unreadable(std::make_error_code(std::errc::is_a_directory));
    }
    if (status.type() == fs::file_type::not_found) {
        return Unreadable(std::make_error_code(std::errc::no_such_file_or_directory));
    }
    if (error) return Unreadable(error);
    if (!fs::is_regular_file(status)) {
        return Unreadable(std::make_error_code(std::errc::not_supported));
    }
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    if (!file) return Unreadable(SystemError());
    const std::streamoff size = file.tellg();
    FileContent content;
    if (std::cmp_greater(size, content.Bytes.max_size())) {
        return Unreadable(std::make_error_code(std::errc::not_enough_memory));
    }
    if (size > 0) {
        content.Bytes.resize(static_cast<std::size_t>(size));
        file.seekg(0);
        file.read(reinterpret_cast<char*>(content.Bytes.data()),
                  static_cast<std::streamsize>(size));
        if (file.gcount() != size) return Unreadable(std::make_error_code(std::errc::io_error));
    }
    return content;
} catch (const std::bad_alloc&) {
    return Unreadable(std::make_error_code(std::errc::not_enough_memory));
}

std::error_code WriteFileToDisk(const std::string& path, std::string_view bytes) {
    std::error_code error;
    Replacement file(BehindLinks(path, error));
    if (!error) error = file.Make();
    if (!error) error = file.Write(bytes);
    if (!error) error = file.TakePlace();
    return error;
}

}  // namespace platform
