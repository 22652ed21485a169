#include "platform/desktop/display.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <QtCore/QLibraryInfo>
#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/desktop/desktop.h"

namespace platform::desktop {

namespace {

// Display systems in the order in which they are tried, unless the person's environment names
// others. X comes first, also on a Wayland desktop: only there windows can be placed.
constexpr std::string_view kPlatformOrder = "xcb;wayland";

// The bits of an event that tell its type; the highest one tells who sent it.
constexpr std::uint8_t kEventType = 0x7F;

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};
using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using Answer = std::unique_ptr<Reply, Free>;

// nullptr when there is no X display.
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

// The next event; nullptr when the time is over.
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

/// The clipboard's text on its way from its owner. A long text comes in pieces, each sent when the
/// piece before was deleted.
class Transfer : public QObject {
  public:
    using Clock = std::chrono::steady_clock;

    Transfer(std::size_t most, std::chrono::milliseconds patience)
        : most_(most), patience_(patience), connection_(Connect()) {}

    ClipboardAnswer Run() {
        if (connection_ == nullptr || !Ask() || !Arrived()) return std::move(answer_);
        answer_.Given = true;
        if (property_ == XCB_ATOM_NONE) return std::move(answer_);
        answer_.Text.emplace();
        const std::uint32_t type = TakePiece();
        if (type == incremental_) TakePieces();
        return std::move(answer_);
    }

    [[nodiscard]] bool Unfinished() const { return pieces_; }

    /// Lets the owner send to the end without looking at what comes; then this is no more, as after
    /// some seconds without a piece.
    void TakeTheRest() {
        constexpr std::chrono::seconds kPatience{5};
        const int socket = xcb_get_file_descriptor(connection_.get());
        notifier_ = std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { DropPieces(); });
        givingUp_ = std::make_unique<QTimer>();
        givingUp_->setSingleShot(true);
        QObject::connect(givingUp_.get(), &QTimer::timeout, [this] { End(); });
        givingUp_->start(kPatience);
        DropPieces();
    }

  private:
    bool Ask() {
        constexpr std::string_view kName = "KORVANDI_TEXT";
        window_ = MakeHiddenWindow(connection_.get(), FirstScreen(connection_.get()));
        incremental_ = Atom(connection_.get(), "INCR");
        xcb_convert_selection(connection_.get(), window_, Atom(connection_.get(), "CLIPBOARD"),
                              Atom(connection_.get(), "UTF8_STRING"),
                              Atom(connection_.get(), kName), XCB_CURRENT_TIME);
        return xcb_flush(connection_.get()) > 0;
    }

    bool Arrived() {
        const auto until = Clock::now() + patience_;
        while (const auto event = NextEvent(connection_.get(), until)) {
            if ((event->response_type & kEventType) != XCB_SELECTION_NOTIFY) continue;
            property_ =
                reinterpret_cast<const xcb_selection_notify_event_t*>(event.get())->property;
            return true;
        }
        return false;
    }

    bool IsPiece(const xcb_generic_event_t& event) const {
        if ((event.response_type & kEventType) != XCB_PROPERTY_NOTIFY) return false;
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        return change.atom == property_ && change.state == XCB_PROPERTY_NEW_VALUE;
    }

    // Adds what the property holds to the text and deletes it; its type.
    std::uint32_t TakePiece() {
        const std::size_t room = most_ - answer_.Text->size();
        const auto request =
            xcb_get_property(connection_.get(), 0, window_, property_, XCB_GET_PROPERTY_TYPE_ANY, 0,
                             static_cast<std::uint32_t>(room / 4 + 1));
        const Answer<xcb_get_property_reply_t> piece(
            xcb_get_property_reply(connection_.get(), request, nullptr));
        xcb_delete_property(connection_.get(), window_, property_);
        xcb_flush(connection_.get());
        if (piece == nullptr) return XCB_ATOM_NONE;
        pieces_ = piece->type == incremental_ || (pieces_ && piece->value_len > 0);
        if (piece->type == incremental_ || piece->format != 8) return piece->type;
        const auto* const bytes = static_cast<const char*>(xcb_get_property_value(piece.get()));
        const std::size_t taken = std::min<std::size_t>(piece->value_len, room);
        answer_.Text->append(bytes, taken);
        answer_.Cut = taken < piece->value_len || piece->bytes_after > 0;
        return piece->type;
    }

    void TakePieces() {
        constexpr std::chrono::milliseconds kLong{50};
        constexpr std::size_t kEnough = 1U << 20U;
        const auto late = Clock::now() + kLong;
        auto until = Clock::now() + patience_;
        while (const auto event = NextEvent(connection_.get(), until)) {
            if (!IsPiece(*event)) continue;
            TakePiece();
            if (!pieces_ || answer_.Cut) return;
            answer_.Cut = answer_.Text->size() > kEnough && Clock::now() > late;
            if (answer_.Cut) return;
            until = Clock::now() + patience_;
        }
        answer_.Cut = true;
        pieces_ = false;  // of an owner that is stuck
    }

    void DropPieces() {
        while (const Answer<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
            if (!IsPiece(*event)) continue;
            if (!DropPiece()) return End();
            givingUp_->start();
        }
        if (xcb_connection_has_error(connection_.get()) != 0) End();
    }

    void End() {
        notifier_->setEnabled(false);
        givingUp_->stop();
        deleteLater();
    }

    // False when the piece was the empty one at the end.
    bool DropPiece() {
        const auto request = xcb_get_property(connection_.get(), 0, window_, property_,
                                              XCB_GET_PROPERTY_TYPE_ANY, 0, 0);
        const Answer<xcb_get_property_reply_t> piece(
            xcb_get_property_reply(connection_.get(), request, nullptr));
        xcb_delete_property(connection_.get(), window_, property_);
        xcb_flush(connection_.get());
        return piece != nullptr && piece->bytes_after > 0;
    }

    std::size_t most_;
    std::chrono::milliseconds patience_;
    Connection connection_;
    xcb_window_t window_ = XCB_NONE;
    xcb_atom_t incremental_ = XCB_ATOM_NONE;
    xcb_atom_t property_ = XCB_ATOM_NONE;
    bool pieces_ = false;  // the owner goes on sending
    ClipboardAnswer answer_;
    std::unique_ptr<QSocketNotifier> notifier_;
    std::unique_ptr<QTimer> givingUp_;
};

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

ClipboardAnswer AskClipboardText(std::size_t most, std::chrono::milliseconds patience) {
    auto transfer = std::make_unique<Transfer>(most, patience);
    ClipboardAnswer answer = transfer->Run();
    // Who leaves before the end may end the owner with an error.
    if (transfer->Unfinished()) transfer.release()->TakeTheRest();
    return answer;
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

bool DisplayReachable() {
    return !ReachablePlatform().empty();
}

}  // namespace platform::desktop
