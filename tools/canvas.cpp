#include "tools/canvas.h"

#include <png.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iostream>
#include <system_error>

namespace tools {

Canvas::Canvas(int width, int height, Rgb paper)
    : width_(width), height_(height), bytes_(static_cast<std::size_t>(width * height * 3)) {
    Paint({0, 0, width, height}, paper);
}

void Canvas::Blend(int x, int y, Rgb ink, int coverage) {
    if (x < 0 || x >= width_ || y < 0 || y >= height_) return;
    std::uint8_t* const pixel = bytes_.data() + (std::ptrdiff_t{y} * width_ + x) * 3;
    const auto blend = [coverage](std::uint8_t& under, std::uint8_t over) {
        under = static_cast<std::uint8_t>((over * coverage + under * (255 - coverage) + 127) / 255);
    };
    blend(pixel[0], ink.Red);
    blend(pixel[1], ink.Green);
    blend(pixel[2], ink.Blue);
}

void Canvas::Paint(const Box& box, Rgb color) {
    for (int y = box.Top; y < box.Bottom; ++y) {
        for (int x = box.Left; x < box.Right; ++x) Blend(x, y, color, 255);
    }
}

void Canvas::DrawCell(const Cell& cell, int left, int top, Rgb ink, int scale) {
    for (int y = 0; y < kCellHeight * scale; ++y) {
        for (int x = 0; x < kCellWidth * scale; ++x) {
            const int coverage = cell.data()[y / scale * kCellWidth + x / scale];
            Blend(left + x, top + y, ink, coverage);
        }
    }
}

void Canvas::DrawSmallCell(const Cell& cell, int left, int top, Rgb ink) {
    for (int y = 0; y < kCellHeight / 2; ++y) {
        for (int x = 0; x < kCellWidth / 2; ++x) {
            const std::uint8_t* const square =
                cell.data() + 2 * (std::ptrdiff_t{y} * kCellWidth + x);
            const int sum = square[0] + square[1] + square[kCellWidth] + square[kCellWidth + 1];
            Blend(left + x, top + y, ink, sum / 4);
        }
    }
}

bool Canvas::WritePng(const std::string& path) const {
    std::error_code fault;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), fault);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width_);
    image.height = static_cast<png_uint_32>(height_);
    image.format = PNG_FORMAT_RGB;
    if (png_image_write_to_file(&image, path.c_str(), 0, bytes_.data(), 0, nullptr) != 0) {
        return true;
    }
    std::cerr << "Cannot write " << path << ": " << image.message << ".\n";
    return false;
}

}  // namespace tools
