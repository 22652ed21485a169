#include "app/console_feed.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

#include "platform/platform.h"

namespace {

// Text on its way to the view. Counted in bytes too, so that a line that never ends stays bounded.
class Feed : public std::enable_shared_from_this<Feed> {
  public:
    explicit Feed(platform::TextView& view) : view_(view) {}

    void Take(std::string_view text) {
        const std::lock_guard lock(mutex_);
        waiting_ += text;
        lines_ += std::count(text.begin(), text.end(), '\n');
        if (lines_ > std::ptrdiff_t{2} * kConsoleLines || waiting_.size() > kMostBytes)
            DropOldest();
        if (std::exchange(posted_, true)) return;
        platform::PostToMain([self = shared_from_this()] { self->HandOver(); });
    }

  private:
    static constexpr std::size_t kMostBytes = std::size_t{8} << 20U;

    void HandOver() {
        std::string text;
        {
            const std::lock_guard lock(mutex_);
            posted_ = false;
            lines_ = 0;
            text.swap(waiting_);
        }
        view_.AppendText(text);
    }

    // Keeps the newest lines that the console will show, and at most half of the bytes.
    void DropOldest() {
        std::size_t from = waiting_.size() - std::min(waiting_.size(), kMostBytes / 2);
        std::ptrdiff_t after =
            std::count(waiting_.begin() + static_cast<std::ptrdiff_t>(from), waiting_.end(), '\n');
        for (; after > kConsoleLines; --after) from = waiting_.find('\n', from) + 1;
        waiting_.erase(0, from);
        lines_ = after;
    }

    platform::TextView& view_;
    std::mutex mutex_;
    std::string waiting_;
    std::ptrdiff_t lines_ = 0;
    bool posted_ = false;
};

}  // namespace

std::function<void(std::string_view)> MakeConsoleFeed(platform::TextView& view) {
    view.SetLineLimit(kConsoleLines);
    return [feed = std::make_shared<Feed>(view)](std::string_view text) { feed->Take(text); };
}
