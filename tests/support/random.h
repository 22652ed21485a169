#pragma once

#include <cstdint>
#include <initializer_list>
#include <random>
#include <vector>

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

  private:
    std::mt19937 engine_;
};
