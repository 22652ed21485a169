#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

// Runs a fuzz target over files, or over all files of folders, once each. Where the fuzzer is not
// linked in, this is the main program of a target.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

namespace fs = std::filesystem;

void Run(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    std::fprintf(stderr, "%s\n", path.c_str());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int argc, char** argv) {
    int files = 0;
    for (int i = 1; i < argc; ++i) {
        const fs::path path = argv[i];
        if (!fs::is_directory(path)) {
            Run(path);
            ++files;
            continue;
        }
        for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
            Run(entry.path());
            ++files;
        }
    }
    std::printf("%d inputs\n", files);
    return files > 0 ? 0 : 1;
}
