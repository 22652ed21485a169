#include "platform/desktop/clipboard_transfer.h"

#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>
#include <algorithm>
#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

#include "platform/desktop/x_connection.h"

namespace platform::desktop {

namespace {

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

ClipboardAnswer AskClipboardText(std::size_t most, std::chrono::milliseconds patience) {
    auto transfer = std::make_unique<Transfer>(most, patience);
    ClipboardAnswer answer = transfer->Run();
    // Who leaves before the end may end the owner with an error.
    if (transfer->Unfinished()) transfer.release()->TakeTheRest();
    return answer;
}

}  // namespace platform::desktop
