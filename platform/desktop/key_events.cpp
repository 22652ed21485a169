#include "platform/desktop/key_events.h"

#include <QtGui/qguiapplication_platform.h>
#include <xcb/xcb.h>

#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <cstdlib>
#include <memory>
#include <optional>

#include "platform/desktop/text.h"
#include "platform/input.h"

namespace platform::desktop {

namespace {

// Bits of the X server's modifier state.
constexpr std::uint32_t kXShift = XCB_MOD_MASK_SHIFT;
constexpr std::uint32_t kXLock = XCB_MOD_MASK_LOCK;
constexpr std::uint32_t kXControl = XCB_MOD_MASK_CONTROL;
constexpr std::uint32_t kXAlt = XCB_MOD_MASK_1;
constexpr std::uint32_t kXSuper = XCB_MOD_MASK_4;
constexpr std::uint32_t kXAltGr = XCB_MOD_MASK_5;

std::uint64_t FlagsOfX(std::uint32_t state) {
    std::uint64_t flags = 0;
    if ((state & kXLock) != 0) flags |= kCapsLockFlag;
    if ((state & kXShift) != 0) flags |= kShiftFlag;
    if ((state & kXControl) != 0) flags |= kControlFlag;
    if ((state & (kXAlt | kXAltGr)) != 0) flags |= kOptionFlag;
    if ((state & kXSuper) != 0) flags |= kCommandFlag;
    return flags;
}

// No value without an X display.
std::optional<std::uint32_t> AskXState() {
    const auto* const x = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x == nullptr || x->connection() == nullptr) return std::nullopt;
    xcb_connection_t* const connection = x->connection();
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
    const std::unique_ptr<xcb_query_pointer_reply_t, decltype(&std::free)> answer(
        xcb_query_pointer_reply(connection, xcb_query_pointer(connection, root), nullptr),
        std::free);
    if (answer == nullptr) return std::nullopt;
    return answer->mask;
}

}  // namespace

parts::NativeKey NativeKeyOf(const QKeyEvent& event) {
    parts::NativeKey key;
    key.ScanCode = event.nativeScanCode();
    key.Symbol = event.nativeVirtualKey();
    key.Text = FromQt(event.text());
    key.Flags = FlagsOf(event.modifiers()) | FlagsOfX(event.nativeModifiers());
    return key;
}

std::uint64_t FlagsOf(Qt::KeyboardModifiers modifiers) {
    std::uint64_t flags = 0;
    if (modifiers.testFlag(Qt::ShiftModifier)) flags |= kShiftFlag;
    if (modifiers.testFlag(Qt::ControlModifier)) flags |= kControlFlag;
    if (modifiers.testFlag(Qt::AltModifier)) flags |= kOptionFlag;
    if (modifiers.testFlag(Qt::GroupSwitchModifier)) flags |= kOptionFlag;
    if (modifiers.testFlag(Qt::MetaModifier)) flags |= kCommandFlag;
    return flags;
}

std::uint64_t FlagsHeldNow() {
    const std::optional<std::uint32_t> state = AskXState();
    return state ? FlagsOfX(*state) : FlagsOf(QGuiApplication::queryKeyboardModifiers());
}

}  // namespace platform::desktop
