#include "tests/examples/played.h"

#include <png.h>

#include <algorithm>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "korvandi.h"
#include "platform/application.h"

namespace {

using platform::Picture;
using Bytes = std::vector<png_byte>;

// Three bytes a pixel: the pictures have no transparent ones.
Bytes WithoutAlpha(const Picture& picture) {
    Bytes bytes;
    bytes.reserve(picture.Bytes.size() / 4 * 3);
    for (std::size_t i = 0; i < picture.Bytes.size(); i += 4) {
        bytes.insert(bytes.end(), &picture.Bytes[i + 1], &picture.Bytes[i] + 4);
    }
    return bytes;
}

bool WritePng(const Picture& picture, const std::string& path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.Width);
    image.height = static_cast<png_uint_32>(picture.Height);
    image.format = PNG_FORMAT_RGB;
    const Bytes bytes = WithoutAlpha(picture);
    return png_image_write_to_file(&image, path.c_str(), 0, bytes.data(), 0, nullptr) != 0;
}

// The pixels of a file that is as large as `picture`; no value for others.
std::optional<Bytes> ReadPng(const std::string& path, const Picture& picture) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, path.c_str()) == 0) return std::nullopt;
    image.format = PNG_FORMAT_RGB;
    Bytes bytes(PNG_IMAGE_SIZE(image));
    const bool read = png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr) != 0;
    const bool fits = image.width == picture.Width && image.height == picture.Height;
    return read && fits ? std::optional(std::move(bytes)) : std::nullopt;
}

// Whether the file holds the picture. One that does not is written into the current folder.
bool Compare(const std::string& name, const Picture& picture, const std::string& folder) {
    std::string path = folder;
    path += "/" + name + ".png";
    if (ReadPng(path, picture) == WithoutAlpha(picture)) return true;
    const std::string differs = name + "-differs.png";
    std::cerr << path << " differs from " << differs << ", which was drawn now.\n";
    if (!WritePng(picture, differs)) std::cerr << "It could not be written.\n";
    return false;
}

// What went wrong while it ran; empty when nothing did.
std::string FaultOf(const korvandi::Outcome& outcome) {
    if (outcome.Pictures.empty()) return "The script took no picture.\n";
    for (const std::string_view fault : {" not initialized", "illegal", "not a graphic window"}) {
        if (outcome.Output.find(fault) != std::string::npos) return outcome.Output;
    }
    return {};
}

}  // namespace

int korvandi::Run(int argc, char** argv, std::string_view /*name*/, std::function<void()> program) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const bool write = arguments.size() == 2 && arguments[0] == "--write";
    if (!write && arguments.size() != 1) {
        std::cerr << "usage: " << argv[0] << " [--write] <folder of the pictures>\n";
        return 2;
    }
    const Outcome outcome = RunHeadless(std::move(program), PersonsScript());
    const std::string fault = FaultOf(outcome);
    std::cerr << fault;
    bool passed = fault.empty();
    for (const auto& [name, picture] : outcome.Pictures) {
        std::string path = arguments.back();
        path += "/" + name + ".png";
        passed =
            (write ? WritePng(picture, path) : Compare(name, picture, arguments.back())) && passed;
    }
    platform::Application::Leave(passed ? 0 : 1);
}
