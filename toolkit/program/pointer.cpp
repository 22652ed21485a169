#include "toolkit/program/pointer.h"

#include <algorithm>
#include <array>
#include <mutex>

#include "toolkit/core/numbers.h"
#include "toolkit/window/window.h"

namespace {

// As the view saw it: points from the lower left of the window's content.
struct Pointer {
    bool Seen = false;
    bool Inside = false;
    std::int64_t X = 0;
    std::int64_t Y = 0;
    std::int64_t Buttons = 0;
};

struct Pointers {
    std::mutex Guard;
    std::array<Pointer, toolkit::kGraphicWindows> Of{};
};

// Never destroyed: threads that outlive main may still ask.
Pointers& ThePointers() {
    static auto* const pointers = new Pointers;
    return *pointers;
}

template <typename Change>
void ChangePointer(std::uint8_t window, const Change& change) {
    if (window >= toolkit::kGraphicWindows) return;
    Pointers& pointers = ThePointers();
    const std::lock_guard lock(pointers.Guard);
    change(pointers.Of.at(window));
}

bool LiesIn(std::int64_t place, std::int64_t size) {
    return place >= 0 && place < size;
}

std::int64_t Held(std::int64_t place, std::int64_t size) {
    return std::clamp<std::int64_t>(place, 0, std::max<std::int64_t>(size - 1, 0));
}

}  // namespace

namespace toolkit {

void NotePointer(std::uint8_t window, const platform::MousePress& pointer) {
    const Pointer now{true, true, Truncated(pointer.X), Truncated(pointer.Y), pointer.Buttons};
    ChangePointer(window, [&](Pointer& noted) { noted = now; });
}

void NotePointerLeft(std::uint8_t window) {
    ChangePointer(window, [](Pointer& noted) { noted.Inside = false; });
}

void ForgetPointers() {
    for (std::uint8_t n = 0; n < kGraphicWindows; ++n) {
        ChangePointer(n, [](Pointer& noted) { noted = {}; });
    }
}

}  // namespace toolkit

korvandi::MouseState korvandi::Mouse(std::uint8_t window) {
    const t_Window* const w = toolkit::UsableWindow(__func__, window, toolkit::Need::SetUp);
    if (w == nullptr) return {};
    Pointer pointer;
    ChangePointer(window, [&](const Pointer& noted) { pointer = noted; });
    if (!pointer.Seen) return {};
    const std::int64_t x = toolkit::Minus(pointer.X, w->BorderWidth);
    const std::int64_t y = toolkit::Minus(toolkit::Plus(w->BorderHeight, w->Height), pointer.Y);
    return {pointer.Inside && LiesIn(x, w->Width) && LiesIn(y, w->Height), Held(x, w->Width),
            Held(y, w->Height), pointer.Buttons};
}
