// Draws the program's icon: the paddle, the ball and the wall, as a vector picture and as pictures
// of pixels in the sizes that desktops ask for.
//
//   make_icon <folder>     writes korvandi.svg and <size>.png for each size

#include <png.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "tools/canvas.h"
#include "tools/file_bytes.h"

using tools::Rgb;

namespace {

constexpr int kSide = 256;  // of the drawing
constexpr int kSizes[] = {16, 32, 48, 64, 128, 256, 512};
constexpr int kSamples = 8;  // of a pixel, in each direction

constexpr Rgb kCase = {0, 128, 255};
constexpr Rgb kScreen = {0, 0, 128};
constexpr Rgb kTrail = {84, 84, 200};
constexpr Rgb kBall = {255, 255, 255};
constexpr Rgb kPaddle = {255, 255, 0};
constexpr Rgb kOrange = {255, 128, 0};
constexpr Rgb kGreen = {0, 255, 0};

// A rectangle with round corners; a disc, if they are as round as they can be.
struct Shape {
    double Left;
    double Top;
    double Width;
    double Height;
    double Radius;
    Rgb Color;
};

Shape Disc(double centreX, double centreY, double radius, Rgb color) {
    return {centreX - radius, centreY - radius, 2 * radius, 2 * radius, radius, color};
}

// The wall as it stands after the first hits. All edges lie on a grid of 16, so that they are sharp
// in the smallest picture, too.
void AddBricks(std::vector<Shape>& shapes) {
    constexpr std::string_view kColumns[] = {".O..GO", "OG.OGO", "GOGOOG"};
    constexpr double kCell = 32;
    constexpr double kGap = 2;  // on each side
    for (std::size_t column = 0; column < std::size(kColumns); ++column) {
        for (std::size_t row = 0; row < kColumns[column].size(); ++row) {
            const char brick = kColumns[column][row];
            if (brick == '.') continue;
            shapes.push_back({128 + kCell * static_cast<double>(column) + kGap,
                              32 + kCell * static_cast<double>(row) + kGap, kCell - 2 * kGap,
                              kCell - 2 * kGap, 4, brick == 'O' ? kOrange : kGreen});
        }
    }
}

// From the back to the front.
std::vector<Shape> Drawing() {
    std::vector<Shape> shapes = {
        {0, 0, 256, 256, 48, kCase}, {16, 16, 224, 224, 34, kScreen}, {32, 128, 16, 80, 6, kPaddle},
        Disc(60, 172, 6, kTrail),    Disc(74, 155, 9, kTrail),        Disc(90, 135, 12, kTrail),
        Disc(112, 112, 16, kBall),
    };
    AddBricks(shapes);
    return shapes;
}

bool Covers(const Shape& shape, double x, double y) {
    const double fromCentreX = std::abs(x - shape.Left - shape.Width / 2);
    const double fromCentreY = std::abs(y - shape.Top - shape.Height / 2);
    if (fromCentreX > shape.Width / 2 || fromCentreY > shape.Height / 2) return false;
    const double beyondX = fromCentreX - (shape.Width / 2 - shape.Radius);
    const double beyondY = fromCentreY - (shape.Height / 2 - shape.Radius);
    return beyondX <= 0 || beyondY <= 0 || std::hypot(beyondX, beyondY) <= shape.Radius;
}

const Shape* FrontAt(const std::vector<Shape>& shapes, double x, double y) {
    for (auto shape = shapes.rbegin(); shape != shapes.rend(); ++shape) {
        if (Covers(*shape, x, y)) return &*shape;
    }
    return nullptr;
}

// Red, green, blue and alpha of a pixel: the mean of its samples.
void AppendPixel(const std::vector<Shape>& shapes, int size, int column, int row,
                 std::vector<std::uint8_t>& pixels) {
    const double unit = static_cast<double>(kSide) / size / kSamples;
    int red = 0;
    int green = 0;
    int blue = 0;
    int covered = 0;
    for (int i = 0; i < kSamples * kSamples; ++i) {
        const double x = (column * kSamples + i % kSamples + 0.5) * unit;
        const double y = (row * kSamples + i / kSamples + 0.5) * unit;
        const Shape* const shape = FrontAt(shapes, x, y);
        if (shape == nullptr) continue;
        red += shape->Color.Red;
        green += shape->Color.Green;
        blue += shape->Color.Blue;
        ++covered;
    }
    const int count = covered == 0 ? 1 : covered;
    for (const int sum :
         {red / count, green / count, blue / count, covered * 255 / (kSamples * kSamples)}) {
        pixels.push_back(static_cast<std::uint8_t>(sum));
    }
}

bool WritePng(const std::vector<Shape>& shapes, int size, const std::string& path) {
    std::vector<std::uint8_t> pixels;
    for (int i = 0; i < size * size; ++i) AppendPixel(shapes, size, i % size, i / size, pixels);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = image.height = static_cast<png_uint_32>(size);
    image.format = PNG_FORMAT_RGBA;
    if (png_image_write_to_file(&image, path.c_str(), 0, pixels.data(), 0, nullptr) != 0) {
        return true;
    }
    std::cerr << path << ": " << image.message << '\n';
    return false;
}

std::string Svg(const std::vector<Shape>& shapes) {
    std::ostringstream svg;
    svg << R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 )" << kSide << ' ' << kSide
        << "\">\n";
    for (const Shape& shape : shapes) {
        svg << "  <rect x=\"" << shape.Left << "\" y=\"" << shape.Top << "\" width=\""
            << shape.Width << "\" height=\"" << shape.Height << "\" rx=\"" << shape.Radius
            << "\" fill=\"rgb(" << int{shape.Color.Red} << ',' << int{shape.Color.Green} << ','
            << int{shape.Color.Blue} << ")\"/>\n";
    }
    svg << "</svg>\n";
    return svg.str();
}

bool WriteAll(const std::string& folder) {
    const std::vector<Shape> shapes = Drawing();
    const std::string svg = Svg(shapes);
    if (!tools::WriteFile(folder + "/korvandi.svg",
                          std::vector<std::uint8_t>(svg.begin(), svg.end())))
        return false;
    for (const int size : kSizes) {
        if (!WritePng(shapes, size, folder + "/" + std::to_string(size) + ".png")) return false;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: make_icon <folder>\n";
        return EXIT_FAILURE;
    }
    return WriteAll(argv[1]) ? EXIT_SUCCESS : EXIT_FAILURE;
}
