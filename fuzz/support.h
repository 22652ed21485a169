#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>
#include <vector>

#include "app/app_delegate.h"
#include "platform/headless/headless.h"
#include "toolkit/toolkit.h"

// What the fuzz targets share: reading an input as a list of decisions, a toolkit that is as good
// as new for every input, and checks that end the process where they fail.

namespace fuzz {

/// An input, taken from the front. Where it has ended every byte is 0.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}

    [[nodiscard]] bool IsEmpty() const { return rest_.empty(); }
    std::uint8_t Byte();
    /// From `first` to `last`, both included, from one byte.
    std::int64_t Between(std::int64_t first, std::int64_t last);
    std::int64_t OneOf(std::initializer_list<std::int64_t> values);
    /// At most `count` bytes.
    std::span<const std::uint8_t> Bytes(std::size_t count);
    std::span<const std::uint8_t> Rest() { return Bytes(rest_.size()); }

  private:
    std::span<const std::uint8_t> rest_;
};

/// Ends the process with a line unless `holds`.
void Check(bool holds, std::string_view what);

/// A toolkit on a headless desktop, made once.
class Toolkit {
  public:
    static Toolkit& Fresh();  // for the next input: no window is set up, no event waits

    platform::headless::Headless Desktop;
    AppDelegate Delegate;

  private:
    Toolkit();
};

/// A font of glyphs of any greys; the blank is empty.
[[nodiscard]] t_Font GreyFont(std::int64_t width, std::int64_t height);

/// The bytes from one address to another, both included.
[[nodiscard]] std::vector<std::uint8_t> Memory(std::int64_t first, std::int64_t last);

/// Sets up a graphic window that nobody draws in, below the blocks handed out so far.
void OpenNeighbour(int window);

/// Watches the memory that no operation may write to: the blocks of all neighbours and a stretch
/// below the last block. Fills them with a pattern when it is made.
class Guards {
  public:
    Guards();
    void ExpectUntouched() const;

  private:
    struct Stretch {
        std::int64_t First;
        std::vector<std::uint8_t> Bytes;
    };
    std::vector<Stretch> stretches_;
};

}  // namespace fuzz
