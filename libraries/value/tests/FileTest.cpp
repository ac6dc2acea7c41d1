// Handles of files that are open for reading.
#include <sstream>

#include "Thrown.h"

namespace {

using Encoding = COtxStringEncoding::Encoding;
using tests::fileException;

COtxFileReadHandle opened(const std::string& content, Encoding encoding = Encoding::Utf8) {
    std::shared_ptr<std::istream> stream = std::make_shared<std::istringstream>(content);
    return COtxFileReadHandle(stream, encoding, COtxString("some/path"));
}

std::string line(const COtxValue& handle) { return handle.FileReadHandle().ReadLine().String(); }
std::string bytes(const COtxValue& handle, std::int64_t index, std::int64_t count) {
    return handle.FileReadHandle().ReadBytes(index, count).ToString().String();
}
bool atEnd(const COtxValue& handle) { return handle.FileReadHandle().IsEof().Bool(); }

}  // namespace

TEST(FileReadHandle, ReadsLines) {
    const COtxValue handle = opened("one\ntwo\r\n\nfour");
    EXPECT_EQ(handle.ToString().String(), "some/path");
    EXPECT_EQ(line(handle), "one");
    EXPECT_EQ(line(handle), "two");
    EXPECT_EQ(line(handle), "");
    EXPECT_FALSE(atEnd(handle));
    EXPECT_EQ(line(handle), "four");
    EXPECT_TRUE(atEnd(handle));
    EXPECT_EQ(OTX_THROWN_KIND(line(handle)), fileException);
    EXPECT_EQ(OTX_THROWN_TEXT(line(handle)), "File 'some/path': the end is reached");
}

TEST(FileReadHandle, ReadsBytes) {
    const COtxValue handle = opened("ABCDE");
    EXPECT_EQ(bytes(handle, -1, 2), "4142");
    EXPECT_EQ(bytes(handle, -1, -1), "434445");
    EXPECT_EQ(OTX_THROWN_KIND(bytes(handle, -1, -1)), fileException);
    EXPECT_EQ(bytes(handle, -1, 0), "");
    EXPECT_EQ(bytes(handle, 1, 2), "4243");
    EXPECT_EQ(bytes(handle, 0, std::numeric_limits<std::int64_t>::max()), "4142434445");
    EXPECT_TRUE(atEnd(handle));
    EXPECT_EQ(OTX_THROWN_KIND(bytes(handle, 99, 1)), fileException);
    EXPECT_EQ(bytes(handle, 4, 1), "45");
}

TEST(FileReadHandle, DecodesLinesWithItsEncoding) {
    EXPECT_EQ(line(opened("\xE4\n", Encoding::Iso8859_1)), "\xC3\xA4");
    const COtxValue wide = opened(std::string("\0A\0\n\0B", 6), Encoding::Utf16BE);
    EXPECT_EQ(line(wide), "A");
    EXPECT_EQ(line(wide), "B");
    const COtxValue little = opened(std::string("\xFF\xFE" "A\0\r\0\n\0B\0", 10), Encoding::Utf16);
    EXPECT_EQ(line(little), "A");
    EXPECT_EQ(line(little), "B");
    EXPECT_TRUE(atEnd(little));
    EXPECT_EQ(line(opened(std::string("\0A", 2), Encoding::Utf16)), "A");
    EXPECT_EQ(OTX_THROWN_KIND(line(opened("\xFF", Encoding::Utf8))), tests::unsupportedEncoding);
    EXPECT_EQ(OTX_THROWN_KIND(line(opened("A", Encoding::Utf16LE))), tests::unsupportedEncoding);
}

TEST(FileReadHandle, RefusesWhenItIsNotOpen) {
    const COtxFileReadHandle unopened;
    EXPECT_EQ(OTX_THROWN_KIND(line(unopened)), fileException);
    EXPECT_EQ(OTX_THROWN_KIND(bytes(unopened, -1, -1)), fileException);
    EXPECT_EQ(OTX_THROWN_KIND(atEnd(unopened)), fileException);
    const COtxValue handle = opened("text");
    handle.FileHandle().Close();
    EXPECT_EQ(OTX_THROWN_TEXT(line(handle)), "File 'some/path': it is not open");
    handle.FileHandle().Close();
}
