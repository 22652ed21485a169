#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

// Connections to the X display beside the one of the window library. Main thread.

namespace platform::desktop {

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};
using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
/// What the display server answered; nullptr when it did not.
template <typename Reply>
using Answer = std::unique_ptr<Reply, Free>;

/// The bits of an event that tell its type; the highest one tells who sent it.
inline constexpr std::uint8_t kEventType = 0x7F;

/// nullptr when there is no X display.
[[nodiscard]] Connection Connect();

/// The number of the name; XCB_ATOM_NONE when the server does not answer.
[[nodiscard]] xcb_atom_t Atom(xcb_connection_t* connection, std::string_view name);

[[nodiscard]] const xcb_screen_t& FirstScreen(xcb_connection_t* connection);

/// A window that is never shown. Its events are the changes of its properties.
[[nodiscard]] xcb_window_t MakeHiddenWindow(xcb_connection_t* connection,
                                            const xcb_screen_t& screen);

/// The next event; nullptr when the time is over or the connection is lost.
[[nodiscard]] Answer<xcb_generic_event_t> NextEvent(xcb_connection_t* connection,
                                                    std::chrono::steady_clock::time_point until);

}  // namespace platform::desktop
