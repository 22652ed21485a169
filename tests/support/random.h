#pragma once

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <random>
#include <vector>

#include "toolkit/font/font.h"

/// Numbers for tests with random input, the same in every run.
class Random {
  public:
    /// From `first` to `last`, both included.
    std::int64_t Between(std::int64_t first, std::int64_t last) {
        return std::uniform_int_distribution<std::int64_t>(first, last)(engine_);
    }
    std::uint8_t Byte() { return static_cast<std::uint8_t>(Between(0, 255)); }
    bool Coin() { return Between(0, 1) == 1; }
    std::int64_t OneOf(std::initializer_list<std::int64_t> values) {
        return values.begin()[Between(0, std::ssize(values) - 1)];
    }

    std::vector<std::uint8_t> Bytes(std::int64_t count) {
        std::vector<std::uint8_t> bytes;
        while (std::ssize(bytes) < count) bytes.push_back(Byte());
        return bytes;
    }

    /// A font that draws every code, in runs of pixels without ink, with full ink and in any grey.
    t_Font GreyFont(std::int64_t width, std::int64_t height) {
        t_Font font;
        font.Format = 2;
        font.End = 255;
        font.Width = width;
        font.Height = height;
        const std::int64_t size = 256 * width * height;
        while (std::ssize(font.Data) < size) {
            const std::int64_t end = std::min(size, std::ssize(font.Data) + Between(1, 12));
            font.Data.resize(static_cast<std::size_t>(end),
                             static_cast<std::uint8_t>(OneOf({0, 255, Byte()})));
        }
        return font;
    }

  private:
    std::mt19937 engine_;
};
