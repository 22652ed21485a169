#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "app/app_delegate.h"

/// One window set-up.
struct WindowSetUp {
    std::uint8_t Window = 0;
    std::int64_t BitDepth = 8;
    std::int64_t Width = 32;
    std::int64_t Height = 32;
    bool HasFont = false;
    bool HasView = true;
};

/// What the memory is to hold: a list of its blocks from the highest address down, without gaps, so
/// that a block's address follows from the sizes above it.
class BlockModel {
  public:
    /// Sets the window up, here and in the toolkit, and fills its new blocks. Returns whether the
    /// window was to become usable.
    bool Apply(const WindowSetUp& setUp, AppDelegate& delegate);

    /// What in the toolkit is not as in the list; empty when all is.
    [[nodiscard]] std::string Difference() const;

  private:
    struct Block {
        std::uint8_t Owner;
        bool Text;
        std::int64_t Size;
        std::vector<std::uint8_t> Content;
    };

    [[nodiscard]] std::int64_t Mark() const;
    void Append(std::uint8_t owner, bool text, std::int64_t bytes);

    std::vector<Block> list_;
    std::size_t noiseAt_ = 0;  // of the next block's content
};
