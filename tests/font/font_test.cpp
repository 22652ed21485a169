#include "toolkit/font/font.h"

#include <algorithm>

#include "tests/support/fixture.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

class FontFiles : public ToolkitTest {
  protected:
    // The font that a file with these bytes gives, and the lines that loading it prints.
    t_Font Load(const Bytes& file) {
        desktop.Files["x.font"] = file;
        return Load();
    }
    t_Font Load() {
        t_Font font;
        Lines = Printed([&] { font = t_LoadFontResource("x.font"); });
        return font;
    }

    // A file of up to 300 bytes with a different number in every field.
    static Bytes File(std::uint8_t headerSize, std::size_t length) {
        Bytes file = {headerSize, 'v', 'x', 'f', 'n', 2, 1, 2, 3, 4, 33, 200, 7, 5, 0xBE, 0xEF};
        for (int i = 0; file.size() < 300; ++i) file.push_back(static_cast<std::uint8_t>(i));
        file.resize(length);
        return file;
    }

    std::string Lines;
};

t_Font NoFont(std::int64_t headerSize, const Bytes& identifier) {
    t_Font font;
    font.HeaderSize = headerSize;
    font.Identifier = identifier;
    return font;
}

const Bytes kVxfn = {'v', 'x', 'f', 'n'};

}  // namespace

TEST_F(FontFiles, GiveWhatTheyHoldFromTheHeaderSizeOn) {
    for (const std::uint8_t headerSize : Bytes{0, 1, 13, 14, 15, 16, 17, 20, 255}) {
        for (std::size_t length = 1; length <= 300; length += length <= 20 ? 1 : 31) {
            SCOPED_TRACE(testing::Message() << int{headerSize} << " " << length);
            const Bytes file = File(headerSize, length);
            const t_Font font = Load(file);
            if (length < std::max<std::size_t>(headerSize, 14)) {
                EXPECT_EQ(Lines, "t_LoadFontResource: Invalid header size\n");
                EXPECT_EQ(font, NoFont(headerSize, kVxfn));
                continue;
            }
            t_Font expected = NoFont(headerSize, kVxfn);
            expected.Format = 2;
            expected.Size = 0x01020304;
            expected.Start = 33;
            expected.End = 200;
            expected.Width = 7;
            expected.Height = 5;
            expected.Reserved = length < 16 ? 0 : 0xBEEF;
            expected.Data = Bytes(file.begin() + headerSize, file.end());
            EXPECT_EQ(font, expected);
            EXPECT_EQ(Lines, "");
        }
    }
}

TEST_F(FontFiles, MissingOrEmptyOnesGiveNoFont) {
    const std::string line = "t_LoadFontResource: Could not load file „x.font“\n";
    EXPECT_EQ(Load({}), NoFont(16, kVxfn));
    EXPECT_EQ(Lines, line);
    desktop.Files.clear();
    EXPECT_EQ(Load(), NoFont(16, kVxfn));
    const std::string reason = "getbinaryfromfile: Error #";
    EXPECT_TRUE(Lines.starts_with(reason) && Lines.ends_with("\n" + line)) << Lines;
    EXPECT_GT(Lines.find('\n'), reason.size());
    EXPECT_EQ(std::count(Lines.begin(), Lines.end(), '\n'), 2);
}

TEST_F(FontFiles, OfAnotherTypeAreReportedAndTheirIdentifierKept) {
    for (std::size_t i = 1; i <= 4; ++i) {
        Bytes file = File(20, 40);
        file[i] ^= 0x20;
        EXPECT_EQ(Load(file), NoFont(20, Bytes(file.begin() + 1, file.begin() + 5)));
        EXPECT_EQ(Lines, "t_LoadFontResource: Invalid file type\n");
    }
}

TEST_F(FontFiles, InCompressedFormatsAreUnpacked) {
    const Bytes stream = {9, 0x20, 0x90, 0xA0, 0x10, 0x20};  // 65, 66, 256, 258 in 9 bits each
    const Bytes invalid = {9, 0x20, 0xC0, 0x40};             // 65, 257
    const Bytes unpacked = {65, 66, 65, 66, 65, 66, 65};
    struct Row {
        std::int64_t Format;
        Bytes Data;
        std::int64_t LoadedFormat;
        Bytes LoadedData;
    };
    for (const Row& row :
         {Row{0, stream, 0, stream}, Row{2, stream, 2, stream}, Row{7, stream, 7, stream},
          Row{100, stream, 0, unpacked}, Row{102, stream, 2, unpacked}, Row{100, {}, 0, {}},
          Row{102, {}, 2, {}}, Row{102, {9}, 2, {}}, Row{102, {0, 65, 66}, 2, {}},
          Row{102, {255, 65, 66}, 2, {}}, Row{102, invalid, 2, {}}}) {
        t_Font font = TestFont();
        font.Size = 77;
        font.Format = row.Format;
        font.Data = row.Data;
        t_Font expected = font;
        expected.Format = row.LoadedFormat;
        expected.Data = row.LoadedData;
        EXPECT_EQ(Load(FontFile(font)), expected) << row.Format;
        EXPECT_EQ(Lines, "");
    }
}
