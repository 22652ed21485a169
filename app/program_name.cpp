#include "app/program_name.h"

#include <filesystem>

#include "platform/platform.h"

std::string ProgramName() {
    return std::filesystem::path(platform::Current().Resources->BundlePath()).stem().string();
}
