#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <new>
#include <vector>

// Colours and finished pictures as they cross the seam. Plain values; any thread.

namespace platform {

struct Color {
    std::uint8_t Alpha = 255;
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;

    bool operator==(const Color&) const = default;
};

/// How the four bytes of a pixel lie in memory, lowest address first.
enum class PixelOrder : std::uint8_t {
    AlphaRedGreenBlue,
    BlueGreenRedAlpha,
};

/// The order in which a pixel read as one 32-bit number is 0xAARRGGBB on this machine.
inline constexpr PixelOrder kNativeWordOrder = std::endian::native == std::endian::little
                                                   ? PixelOrder::BlueGreenRedAlpha
                                                   : PixelOrder::AlphaRedGreenBlue;

/// Gets memory that begins where a line of the processor's cache does: vectors as long as a line
/// then go to one line each and not to two, which costs up to half as much again.
template <typename T>
struct LineAllocator {
    using value_type = T;
    static constexpr std::align_val_t kLine{64};

    LineAllocator() = default;
    template <typename Other>
    explicit LineAllocator(const LineAllocator<Other>& /*other*/) {}

    T* allocate(std::size_t count) {
        return static_cast<T*>(::operator new(count * sizeof(T), kLine));
    }
    void deallocate(T* memory, std::size_t /*count*/) { ::operator delete(memory, kLine); }
    bool operator==(const LineAllocator& /*other*/) const { return true; }
};

using PixelBytes = std::vector<std::uint8_t, LineAllocator<std::uint8_t>>;

/// A finished picture; whoever holds it owns its bytes.
struct Picture {
    std::int64_t Width = 0;   // pixels
    std::int64_t Height = 0;  // pixels
    PixelOrder Order = PixelOrder::AlphaRedGreenBlue;
    PixelBytes Bytes;  // 4 * Width * Height, top row first, nothing between rows
    /// Whoever fills the bytes may note here what they are of, to fill in later only what has
    /// changed. 0: nothing is known of them; who changes them without the filler sets it to that.
    std::uint64_t Filling = 0;

    /// The same size, order and bytes.
    bool operator==(const Picture& other) const {
        return Width == other.Width && Height == other.Height && Order == other.Order &&
               Bytes == other.Bytes;
    }
};

/// Rows of a picture, counted from 0 at its top: those from First on that come before End.
struct Rows {
    std::int64_t First = 0;
    std::int64_t End = 0;

    bool operator==(const Rows&) const = default;
};

}  // namespace platform
