#include "platform/desktop/display.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QtCore/QLibraryInfo>
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/desktop/x_connection.h"

namespace platform::desktop {

namespace {

// Display systems in the order in which they are tried, unless the person's environment names
// others. X comes first, also on a Wayland desktop: only there windows can be placed.
constexpr std::string_view kPlatformOrder = "xcb;wayland";

// The property as 32-bit numbers; empty when it is not there.
std::vector<std::uint32_t> Numbers(xcb_connection_t* connection, xcb_window_t window,
                                   xcb_atom_t property) {
    constexpr std::uint32_t kMostNumbers = 1024;
    const auto request = xcb_get_property(connection, 0, window, property,
                                          XCB_GET_PROPERTY_TYPE_ANY, 0, kMostNumbers);
    const Answer<xcb_get_property_reply_t> answer(
        xcb_get_property_reply(connection, request, nullptr));
    if (answer == nullptr || answer->format != 32) return {};
    const auto* const first =
        static_cast<const std::uint32_t*>(xcb_get_property_value(answer.get()));
    return {first, first + answer->value_len};
}

void RequestExtents(xcb_connection_t* connection, const xcb_screen_t& screen, xcb_window_t window) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = Atom(connection, "_NET_REQUEST_FRAME_EXTENTS");
    xcb_send_event(connection, 0, screen.root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    xcb_flush(connection);
}

bool WindowManagerRuns(xcb_connection_t* connection, const xcb_screen_t& screen) {
    return !Numbers(connection, screen.root, Atom(connection, "_NET_SUPPORTING_WM_CHECK")).empty();
}

bool WindowManagerAnswers(xcb_connection_t* connection, const xcb_screen_t& screen) {
    return std::ranges::count(Numbers(connection, screen.root, Atom(connection, "_NET_SUPPORTED")),
                              Atom(connection, "_NET_REQUEST_FRAME_EXTENTS")) > 0;
}

// The variable of the environment; empty when it is not set.
std::string_view Environment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string_view() : std::string_view(value);
}

std::filesystem::path WaylandSocket() {
    const std::string_view named = Environment("WAYLAND_DISPLAY");
    const std::filesystem::path name = named.empty() ? "wayland-0" : named;
    return std::filesystem::path(Environment("XDG_RUNTIME_DIR")) / name;
}

bool WaylandReachable() {
    const std::string path = WaylandSocket();
    sockaddr_un address{};
    if (path.size() >= sizeof address.sun_path) return false;
    address.sun_family = AF_UNIX;
    std::ranges::copy(path, address.sun_path);
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (descriptor < 0) return false;
    const bool reachable =
        connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(descriptor);
    return reachable;
}

// Where the window library looks for its plugins.
std::vector<std::filesystem::path> PluginFolders() {
    std::vector<std::filesystem::path> folders{
        QLibraryInfo::path(QLibraryInfo::PluginsPath).toStdString()};
    std::string_view list = Environment("QT_PLUGIN_PATH");
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(':'), list.size());
        folders.emplace_back(list.substr(0, end));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return folders;
}

bool PluginInstalled(std::string_view name) {
    for (const std::filesystem::path& folder : PluginFolders()) {
        std::error_code error;
        for (const auto& entry : std::filesystem::directory_iterator(folder / "platforms", error)) {
            if (entry.path().filename().string().starts_with("libq" + std::string(name))) {
                return true;
            }
        }
    }
    return false;
}

// What found the X display.
Connection& Finder() {
    static auto* const connection = new Connection;
    return *connection;
}

// `plugin` as the window system's own choice of platform names it, options after a colon.
bool PluginReachable(std::string_view plugin) {
    const std::string_view name = plugin.substr(0, plugin.find(':'));
    if (name.empty() || !PluginInstalled(name)) return false;
    if (name == "xcb") {
        Finder() = Connect();
        return Finder() != nullptr;
    }
    if (name.starts_with("wayland")) return WaylandReachable();
    return true;
}

}  // namespace

std::optional<FrameSides> AskFrameSides(std::chrono::milliseconds patience) {
    const auto until = std::chrono::steady_clock::now() + patience;
    const Connection connection = Connect();
    if (connection == nullptr) return std::nullopt;
    const xcb_screen_t& screen = FirstScreen(connection.get());
    if (!WindowManagerRuns(connection.get(), screen)) return FrameSides{};
    if (!WindowManagerAnswers(connection.get(), screen)) return std::nullopt;

    const xcb_window_t window = MakeHiddenWindow(connection.get(), screen);
    const xcb_atom_t extents = Atom(connection.get(), "_NET_FRAME_EXTENTS");
    RequestExtents(connection.get(), screen, window);
    while (NextEvent(connection.get(), until) != nullptr) {
        const std::vector<std::uint32_t> sides = Numbers(connection.get(), window, extents);
        if (sides.size() < 4) continue;
        const auto side = [&](std::size_t i) { return static_cast<int>(sides[i]); };
        return FrameSides{.Left = side(0), .Right = side(1), .Top = side(2), .Bottom = side(3)};
    }
    return std::nullopt;
}

bool ButtonHeld() {
    const Connection connection = Connect();
    if (connection == nullptr) return false;
    const auto request = xcb_query_pointer(connection.get(), FirstScreen(connection.get()).root);
    const Answer<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(connection.get(), request, nullptr));
    constexpr std::uint16_t kButtons = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
    return pointer != nullptr && (pointer->mask & kButtons) != 0;
}

const std::string& ReachablePlatform() {
    static const std::string reachable = [] {
        const std::string_view chosen = Environment("QT_QPA_PLATFORM");
        std::string_view plugins = chosen.empty() ? kPlatformOrder : chosen;
        while (!plugins.empty()) {
            const std::size_t end = std::min(plugins.find(';'), plugins.size());
            if (PluginReachable(plugins.substr(0, end))) return std::string(plugins.substr(0, end));
            plugins.remove_prefix(std::min(end + 1, plugins.size()));
        }
        return std::string();
    }();
    return reachable;
}

void LetGoOfDisplay() {
    Finder().reset();
}

}  // namespace platform::desktop
