#include "toolkit/graphics/frame.h"

#include <algorithm>
#include <array>
#include <new>
#include <string>
#include <string_view>

#include "toolkit/core/clock.h"
#include "toolkit/core/memory.h"
#include "toolkit/core/memory_changes.h"
#include "toolkit/core/output.h"
#include "toolkit/core/threads.h"
#include "toolkit/graphics/pixel_rows.h"
#include "toolkit/window/host_windows.h"
#include "toolkit/window/window.h"

using platform::Picture;
using platform::Rows;
using toolkit::PrintLine;

namespace {

// What a frame needs of a record, read once: the record may change while the frame is built.
struct Snapshot {
    std::int64_t BitDepth;
    std::int64_t Width;
    std::int64_t Height;
    std::int64_t Start;

    explicit Snapshot(const t_Window& w)
        : BitDepth(w.BitDepth), Width(w.Width), Height(w.Height), Start(w.MemoryStart) {}

    bool operator==(const Snapshot&) const = default;

    [[nodiscard]] std::int64_t Pixels() const { return Width * Height; }
    [[nodiscard]] std::int64_t Bytes() const { return Pixels() * BitDepth / 8; }
    [[nodiscard]] bool HasSize() const {
        return Width >= 1 && Width <= toolkit::kLargestSide && Height >= 1 &&
               Height <= toolkit::kLargestSide;
    }
    // A torn pair of old and new fields may give a wrong picture, never one outside the memory.
    [[nodiscard]] bool InMemory() const {
        return HasSize() && Pixels() * BitDepth % 8 == 0 && toolkit::InMemory(Start, Bytes());
    }
};

void ReportIllegalBitDepth(const Snapshot& s) {
    constexpr std::string_view kLine = "t_WindowImage: Illegal bit depth.\n";
    if (!s.HasSize()) return;
    std::string row;
    for (std::int64_t x = 0; x < s.Width; ++x) row += kLine;
    for (std::int64_t y = 0; y < s.Height; ++y) toolkit::PrintPiece(row);
}

// Without memory for the picture: false, and it is as it was.
bool Fit(Picture& picture, const Snapshot& s) try {
    const auto bytes = static_cast<std::size_t>(s.Pixels() * 4);
    if (picture.Bytes.size() != bytes) {
        picture.Bytes.resize(bytes);
        picture.Filling = 0;
    }
    picture.Width = s.Width;
    picture.Height = s.Height;
    return true;
} catch (const std::bad_alloc&) {
    PrintLine("t_WindowImage: Data could not be collected, image could not be created.");
    return false;
}

// The last frame of a window: of what it was made, and when its bytes were read. The picture that
// holds it bears its number; any other picture, and one of other pixels, is gone through as a
// whole.
struct LastFrame {
    std::uint64_t Number = 0;
    std::optional<Snapshot> Of;
    platform::PixelOrder Order{};
    toolkit::Moment Read = 0;
};

constinit std::array<LastFrame, toolkit::kGraphicWindows> lastFrames{};

// From when on changes of the memory count for this picture.
toolkit::Moment HeldSince(const LastFrame& last, const Snapshot& s, const Picture& picture) {
    const bool isLast = picture.Filling != 0 && picture.Filling == last.Number && s == last.Of &&
                        picture.Order == last.Order;
    return isLast ? last.Read : 0;
}

// Rows follow each other without a gap on both sides: block and picture are one run of pixels. It
// is taken in pieces, and those that did not change are not written: that saves half of the memory
// traffic and tells where the picture changed. Pieces that nobody wrote to since `held` are not
// looked at; 0: all are.
Rows Turn(const Snapshot& s, const toolkit::PixelConverter& converter, toolkit::Moment held,
          Picture& picture) {
    constexpr std::int64_t kPiece = 1024;  // pixels, a multiple of 128 for aligned sources
    const std::uint8_t* const source = t_Memory.data();
    const std::int64_t pixels = s.Pixels();
    std::int64_t first = pixels;
    std::int64_t end = 0;
    for (std::int64_t at = 0; at < pixels; at += kPiece) {
        const std::int64_t count = std::min(kPiece, pixels - at);
        const std::int64_t address = s.Start + at * s.BitDepth / 8;
        if (held != 0 && !toolkit::ChangedSince(held, address, count * s.BitDepth / 8)) continue;
        std::uint8_t* const place = picture.Bytes.data() + 4 * at;
        if (!converter.Differs(source + address, place, count)) continue;
        converter.Convert(source + address, place, count);
        first = std::min(first, at);
        end = at + count;
    }
    if (end == 0) return {};
    return {first / s.Width, (end + s.Width - 1) / s.Width};
}

// Turns what changed since the picture was made, and notes what it holds now.
Rows Renew(LastFrame& last, const Snapshot& s, const toolkit::PixelConverter& converter,
           Picture& picture) {
    static constinit std::uint64_t frames = 0;
    const toolkit::Moment held = HeldSince(last, s, picture);
    const toolkit::Moment read = toolkit::TakeMarks(s.Start, s.Bytes());
    const Rows changed = Turn(s, converter, held, picture);
    last = {++frames, s, picture.Order, read};
    picture.Filling = frames;
    return changed;
}

}  // namespace

std::optional<Rows> t_WindowImage(std::uint8_t window, Picture& picture) {
    if (!t_ToolsReady || window >= toolkit::kGraphicWindows) return std::nullopt;
    t_Window& w = t_Windows[window];
    if (!w.Initialized) {
        PrintLine("t_WindowImage: Graphic window #", window, " not initialized.");
        return std::nullopt;
    }
    if (!w.Visible) return std::nullopt;
    const std::int64_t started = toolkit::Microseconds();
    const Snapshot snapshot(w);
    const toolkit::PixelConverter converter =
        toolkit::ConverterFor(snapshot.BitDepth, picture.Order);
    if (converter.Convert == nullptr) {
        ReportIllegalBitDepth(snapshot);
        return std::nullopt;
    }
    if (!snapshot.InMemory()) return std::nullopt;
    const bool sameSize = picture.Width == snapshot.Width && picture.Height == snapshot.Height;
    if (!Fit(picture, snapshot)) return std::nullopt;
    const Rows changed = Renew(lastFrames[window], snapshot, converter, picture);
    w.UpdateDuration = toolkit::Microseconds() - started;
    w.UpdateFinished = toolkit::Milliseconds();
    return sameSize ? changed : Rows{0, snapshot.Height};
}

std::optional<Picture> t_WindowImage(std::uint8_t window) {
    Picture picture;
    if (!t_WindowImage(window, picture)) return std::nullopt;
    return picture;
}

std::optional<Picture> t_WindowSnapshot(std::uint8_t window) {
    if (t_WindowView(window) == nullptr) return std::nullopt;
    return t_WindowImage(window);
}
