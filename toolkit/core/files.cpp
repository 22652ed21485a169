#include "toolkit/core/files.h"

#include <utility>

#include "platform/platform.h"
#include "toolkit/core/output.h"

std::vector<std::uint8_t> getbinaryfromfile(const std::string& path) {
    platform::FileContent content = platform::Current().Resources->ReadFile(path);
    if (content.Error) {
        toolkit::PrintLine("getbinaryfromfile: Error #", content.Error.message());
        return {};
    }
    return std::move(content.Bytes);
}
