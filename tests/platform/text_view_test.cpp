#include <gtest/gtest.h>

#include <string>

#include "platform/headless/headless.h"
#include "tests/support/random.h"

namespace {

// The last `limit` lines of a text, 0 for all; the last one may be empty.
std::string LastLines(const std::string& text, std::int64_t limit) {
    std::vector<std::string> lines(1);
    for (std::size_t i = 0; i < text.size(); ++i) {
        lines.back() += text[i];
        const bool pair = text[i] == '\r' && text.substr(i + 1, 1) == "\n";
        if (text[i] == '\n' || (text[i] == '\r' && !pair)) lines.emplace_back();
    }
    std::string last;
    for (std::size_t n = 0; n < lines.size(); ++n) {
        if (limit == 0 || std::ssize(lines) - static_cast<std::int64_t>(n) <= limit) {
            last += lines[n];
        }
    }
    return last;
}

}  // namespace

TEST(TextViews, KeepTheNewestLinesHoweverTheyEnd) {
    const platform::headless::Headless desktop;
    Random random;
    for (int run = 0; run < 400; ++run) {
        platform::headless::HeadlessTextView view;
        const std::int64_t limit = random.Between(0, 4);
        view.SetLineLimit(limit);
        std::string all = random.Coin() ? "x\r" : "";
        view.Content = all;
        for (int piece = 0; piece < 12; ++piece) {
            std::string text;
            for (std::int64_t n = random.Between(0, 5); n > 0; --n) {
                text += static_cast<char>(random.OneOf({'a', 'b', '\r', '\n'}));
            }
            all += text;
            view.AppendText(text);
            ASSERT_EQ(view.Content, LastLines(all, limit)) << limit;
            ASSERT_EQ(view.Text(), view.Content);
        }
    }
}
