#include "platform/desktop/x_connection.h"

#include <poll.h>

namespace platform::desktop {

Connection Connect() {
    Connection connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) != 0) return nullptr;
    return connection;
}

xcb_atom_t Atom(xcb_connection_t* connection, std::string_view name) {
    const auto request =
        xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Answer<xcb_intern_atom_reply_t> answer(
        xcb_intern_atom_reply(connection, request, nullptr));
    return answer == nullptr ? static_cast<xcb_atom_t>(XCB_ATOM_NONE) : answer->atom;
}

const xcb_screen_t& FirstScreen(xcb_connection_t* connection) {
    return *xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
}

xcb_window_t MakeHiddenWindow(xcb_connection_t* connection, const xcb_screen_t& screen) {
    const xcb_window_t window = xcb_generate_id(connection);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen.root, 0, 0, 640, 400, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
    return window;
}

Answer<xcb_generic_event_t> NextEvent(xcb_connection_t* connection,
                                      std::chrono::steady_clock::time_point until) {
    while (xcb_connection_has_error(connection) == 0) {
        Answer<xcb_generic_event_t> event(xcb_poll_for_event(connection));
        if (event != nullptr) return event;
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            until - std::chrono::steady_clock::now());
        if (left.count() <= 0) return nullptr;
        pollfd socket{xcb_get_file_descriptor(connection), POLLIN, 0};
        poll(&socket, 1, static_cast<int>(left.count()));
    }
    return nullptr;
}

}  // namespace platform::desktop
