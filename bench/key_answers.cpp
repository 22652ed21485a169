#include "bench/key_answers.h"

#include <sys/uio.h>
#include <xcb/xcb.h>
#include <xcb/xcbext.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <thread>

namespace {

using std::chrono::steady_clock;

constexpr int kPresses = 200;
constexpr std::chrono::milliseconds kPatience(500);
constexpr std::uint8_t kDigitKey = 10;  // key codes of the usual layout: 1 and Backspace
constexpr std::uint8_t kBackspaceKey = 22;

struct Area {
    std::int16_t X;
    std::int16_t Y;
    std::uint16_t Width;
    std::uint16_t Height;
};

// A keyboard in front of a display, and eyes.
class Observer {
  public:
    explicit Observer(const std::string& display)
        : connection_(xcb_connect(display.c_str(), nullptr)) {
        if (xcb_connection_has_error(connection_.get()) != 0) return;
        screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data;
        const xcb_query_extension_reply_t* const extension =
            xcb_get_extension_data(connection_.get(), &test_);
        canPress_ = extension != nullptr && extension->present != 0;
    }

    [[nodiscard]] bool CanPress() const { return canPress_; }
    [[nodiscard]] Area WholeScreen() const {
        return {0, 0, screen_->width_in_pixels, screen_->height_in_pixels};
    }

    void Press(std::uint8_t key) {
        Send(XCB_KEY_PRESS, key);
        Send(XCB_KEY_RELEASE, key);
        xcb_flush(connection_.get());
    }

    // The pixels shown there, four bytes each.
    std::vector<std::uint8_t> Look(const Area& area) {
        xcb_get_image_reply_t* const image = xcb_get_image_reply(
            connection_.get(),
            xcb_get_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, screen_->root, area.X,
                          area.Y, area.Width, area.Height, ~0U),
            nullptr);
        if (image == nullptr) return {};
        const std::uint8_t* const bytes = xcb_get_image_data(image);
        std::vector<std::uint8_t> pixels(bytes, bytes + xcb_get_image_data_length(image));
        std::free(image);
        return pixels;
    }

  private:
    // The XTEST request FakeInput.
    struct FakeInput {
        std::uint8_t Opcode;  // filled in by the library, as is the length
        std::uint8_t Request;
        std::uint16_t Length;
        std::uint8_t Type;
        std::uint8_t Detail;
        std::uint8_t Rest[30];
    };
    static_assert(sizeof(FakeInput) == 36);

    void Send(std::uint8_t type, std::uint8_t key) {
        constexpr std::uint8_t kFakeInput = 2;
        FakeInput input{};
        input.Type = type;
        input.Detail = key;
        const xcb_protocol_request_t request{1, &test_, kFakeInput, 1};
        iovec parts[3] = {};  // the library uses the two before the one that it is given
        parts[2] = {&input, sizeof input};
        xcb_send_request(connection_.get(), 0, parts + 2, &request);
    }

    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    xcb_extension_t test_{"XTEST", 0};
    const xcb_screen_t* screen_ = nullptr;
    bool canPress_ = false;
};

// The smallest area in which two pictures of the whole screen differ; no pixels when they don't.
Area Difference(const std::vector<std::uint8_t>& a, const std::vector<std::uint8_t>& b,
                const Area& screen) {
    int left = screen.Width;
    int right = -1;
    int top = screen.Height;
    int bottom = -1;
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        if (a[i] == b[i]) continue;
        const int x = static_cast<int>(i / 4 % screen.Width);
        const int y = static_cast<int>(i / 4 / screen.Width);
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
    }
    if (right < 0) return {};
    return {static_cast<std::int16_t>(left), static_cast<std::int16_t>(top),
            static_cast<std::uint16_t>(right - left + 1),
            static_cast<std::uint16_t>(bottom - top + 1)};
}

// Milliseconds until the area changes; as long as patience lasts when it doesn't.
double TimeToChange(Observer& observer, std::uint8_t key, const Area& area) {
    const std::vector<std::uint8_t> before = observer.Look(area);
    const auto start = steady_clock::now();
    observer.Press(key);
    while (observer.Look(area) == before && steady_clock::now() - start < kPatience) {
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    return std::chrono::duration<double, std::milli>(steady_clock::now() - start).count();
}

}  // namespace

std::vector<double> TimesOfAnswers(const std::string& display) {
    Observer observer(display);
    if (!observer.CanPress()) return {};
    const std::vector<std::uint8_t> before = observer.Look(observer.WholeScreen());
    observer.Press(kDigitKey);
    std::this_thread::sleep_for(kPatience);
    const Area area =
        Difference(before, observer.Look(observer.WholeScreen()), observer.WholeScreen());
    if (area.Width == 0) return {};
    std::vector<double> times;
    for (int i = 0; i < kPresses; ++i) {
        times.push_back(TimeToChange(observer, i % 2 == 0 ? kBackspaceKey : kDigitKey, area));
        // Of another length each time, so that no press meets the same moment of a picture's time.
        std::this_thread::sleep_for(std::chrono::microseconds(60'000 + i * 7'919 % 33'000));
    }
    std::ranges::sort(times);
    return times;
}
