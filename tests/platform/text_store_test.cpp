#include "platform/text_store.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/parts/text_excerpt.h"

namespace {

using namespace platform::parts;

std::string Repeated(const std::string& text, std::size_t times) {
    std::string all;
    for (; times > 0; --times) all += text;
    return all;
}

}  // namespace

TEST(TextStores, CountAnewForANewLimit) {
    platform::TextStore store;
    store.Append("a\nb\n");
    store.SetLimit(2);
    EXPECT_EQ(store.Text(), "b\n");
    store.SetLimit(0);
    store.Append("c\nd\ne");
    EXPECT_EQ(store.Text(), "b\nc\nd\ne");
}

TEST(TextExcerpts, AreWholeCharactersAndNotTooManyLines) {
    const std::string line = "äöü\r\n";
    const std::string many = Repeated(line, kMostLinesShown + 5);
    EXPECT_EQ(Beginning(line), line);
    EXPECT_EQ(Ending(line), line);
    EXPECT_EQ(Beginning(many), Repeated(line, kMostLinesShown));
    EXPECT_EQ(Ending(many), Repeated(line, kMostLinesShown - 1));
    const std::string longLine = "x" + Repeated("€", kMostBytesShown / 3 + 9) + "x";
    EXPECT_EQ(Beginning(longLine), "x" + Repeated("€", (kMostBytesShown - 1) / 3));
    EXPECT_EQ(Ending(longLine), Repeated("€", (kMostBytesShown - 1) / 3) + "x");
    EXPECT_EQ(Beginning(std::string(2 * kMostBytesShown, '\x80')), "");
}
