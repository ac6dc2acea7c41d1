// Handles of files that are open for reading.
#include <charconv>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <thread>
#include <vector>

#include "Thrown.h"

namespace {

using Encoding = COtxStringEncoding::Encoding;
using tests::fileException;

constexpr int fileAccess = 35;
constexpr int fileFormat = 37;

COtxFileReadHandle opened(std::shared_ptr<std::istream> stream, Encoding encoding = Encoding::Utf8) {
    return COtxFileReadHandle(stream, encoding, COtxString("some/path"));
}
COtxFileReadHandle opened(const std::string& content, Encoding encoding = Encoding::Utf8) {
    return opened(std::make_shared<std::istringstream>(content), encoding);
}

std::string line(const COtxValue& handle) { return handle.FileReadHandle().ReadLine().String(); }
std::string bytes(const COtxValue& handle, std::int64_t index, std::int64_t count) {
    return handle.FileReadHandle().ReadBytes(index, count).ToString().String();
}
bool atEnd(const COtxValue& handle) { return handle.FileReadHandle().IsEof().Bool(); }

// All lines, as a sequence reads them.
std::vector<std::string> lines(const COtxValue& handle) {
    std::vector<std::string> all;
    while (!atEnd(handle)) all.push_back(line(handle));
    return all;
}
using Lines = std::vector<std::string>;

// A stream over a buffer of the test's own.
template <class Buffer>
class StreamOver : public std::istream {
public:
    template <class... Arguments>
    explicit StreamOver(Arguments... arguments) : std::istream(nullptr), buffer_(arguments...) {
        rdbuf(&buffer_);
    }

private:
    Buffer buffer_;
};

// Gives one byte at a time, and can't seek.
class Drops : public std::streambuf {
public:
    explicit Drops(std::string content) : content_(std::move(content)) {}

private:
    int_type underflow() override {
        if (place_ == content_.size()) return traits_type::eof();
        setg(&content_[place_], &content_[place_], &content_[place_] + 1);
        return traits_type::to_int_type(content_[place_++]);
    }

    std::string content_;
    std::size_t place_ = 0;
};

// Stands at its end when it was told to go behind that.
class Overshooting : public std::stringbuf {
public:
    using std::stringbuf::stringbuf;

private:
    pos_type seekpos(pos_type place, std::ios_base::openmode which) override {
        const pos_type reached = std::stringbuf::seekpos(place, which);
        if (reached == pos_type(off_type(-1))) std::stringbuf::seekoff(0, std::ios_base::end, which);
        return reached;
    }
};

// Has no end.
class Endless : public std::streambuf {
    int_type underflow() override {
        setg(piece_.data(), piece_.data(), piece_.data() + piece_.size());
        return traits_type::to_int_type('x');
    }

    std::string piece_ = std::string(1 << 20, 'x');
};

// Gives two bytes, and breaks down then.
template <class Failure>
class Broken : public std::streambuf {
    int_type underflow() override {
        if (std::exchange(isBroken_, true)) Failure::raise();
        setg(bytes_, bytes_, bytes_ + 2);
        return traits_type::to_int_type(bytes_[0]);
    }

    bool isBroken_ = false;
    char bytes_[2] = {'a', 'b'};
};
struct SystemFailure {
    static void raise() { throw std::runtime_error("no connection"); }
};
struct FormatFailure {
    static void raise() { throw COtxException(OTX::Exceptions_e::FileFormatException, "not packed"); }
};

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

TEST(FileReadHandle, HasNoLineBehindTheLastLineEnd) {
    EXPECT_EQ(lines(opened("a\nb\n")), (Lines{"a", "b"}));
    EXPECT_EQ(lines(opened("a\nb\n\n")), (Lines{"a", "b", ""}));
    EXPECT_EQ(lines(opened("\n")), (Lines{""}));
    EXPECT_EQ(lines(opened("")), Lines{});
    EXPECT_EQ(lines(opened("\r\n")), (Lines{""}));
}

TEST(FileReadHandle, TakesOneCarriageReturnAheadOfTheLineEndOnly) {
    EXPECT_EQ(lines(opened("a\rb\r\r\nc\r")), (Lines{"a\rb\r", "c"}));
    EXPECT_EQ(lines(opened(std::string("a\0b\n", 4))), (Lines{std::string("a\0b", 3)}));
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
    EXPECT_EQ(OTX_THROWN_TEXT(bytes(handle, 99, 1)), "File 'some/path': there is no byte 99");
    EXPECT_EQ(OTX_THROWN_TEXT(bytes(handle, 5, 1)), "File 'some/path': there is no byte 5");
    EXPECT_EQ(OTX_THROWN_KIND(bytes(handle, std::numeric_limits<std::int64_t>::max(), 1)), fileException);
    EXPECT_EQ(bytes(handle, 4, 1), "45");
    EXPECT_EQ(bytes(handle, 5, 0), "");
    EXPECT_EQ(OTX_THROWN_TEXT(bytes(handle, 6, 0)), "File 'some/path': there is no byte 6");
}

TEST(FileReadHandle, StaysWhereItWasWhenBytesAreRefused) {
    // Whether the place is at the beginning, inside of what is read ahead, at its end, or behind it.
    const std::string content = std::string(32'767, 'x') + "\nlast\n";
    for (const std::int64_t place : {0, 5, 32'768, 32'770, 32'773}) {
        const COtxValue handle = opened(std::make_shared<StreamOver<Overshooting>>(content));
        EXPECT_EQ(bytes(handle, 0, place).size(), static_cast<std::size_t>(2 * place));
        EXPECT_EQ(OTX_THROWN_TEXT(bytes(handle, 99'999, 1)), "File 'some/path': there is no byte 99999");
        EXPECT_EQ(OTX_THROWN_TEXT(bytes(handle, 99'999, 0)), "File 'some/path': there is no byte 99999");
        EXPECT_EQ(OTX_THROWN_TEXT(bytes(handle, 32'773, 1)), "File 'some/path': there is no byte 32773");
        if (place == 32'773) {
            EXPECT_TRUE(atEnd(handle));
            continue;
        }
        const std::string rest = content.substr(static_cast<std::size_t>(place));
        EXPECT_EQ(line(handle), rest.substr(0, rest.find('\n')));
    }
}

TEST(FileReadHandle, ReadsLinesAndBytesInTurns) {
    const COtxValue handle = opened("one\ntwo\nthree");
    EXPECT_EQ(line(handle), "one");
    EXPECT_EQ(bytes(handle, -1, 1), "74");
    EXPECT_EQ(line(handle), "wo");
    EXPECT_EQ(bytes(handle, 4, 3), "74776F");
    EXPECT_EQ(line(handle), "");
    EXPECT_EQ(line(handle), "three");
    EXPECT_EQ(bytes(handle, 0, 0), "");
    EXPECT_EQ(line(handle), "one");
}

TEST(FileReadHandle, DecodesLinesWithItsEncoding) {
    EXPECT_EQ(line(opened("\xE4\n", Encoding::Iso8859_1)), "\xC3\xA4");
    EXPECT_EQ(line(opened("plain\r\n", Encoding::UsAscii)), "plain");
    EXPECT_EQ(line(opened("\xC3\xA4\xE2\x82\xAC\n")), "\xC3\xA4\xE2\x82\xAC");
    const COtxValue wide = opened(std::string("\0A\0\n\0B", 6), Encoding::Utf16BE);
    EXPECT_EQ(line(wide), "A");
    EXPECT_EQ(line(wide), "B");
    const COtxValue little = opened(std::string("\xFF\xFE" "A\0\r\0\n\0B\0", 10), Encoding::Utf16);
    EXPECT_EQ(line(little), "A");
    EXPECT_EQ(line(little), "B");
    EXPECT_TRUE(atEnd(little));
    EXPECT_EQ(line(opened(std::string("\0A", 2), Encoding::Utf16)), "A");
    EXPECT_EQ(lines(opened("AZ\r\n\xFF\n", Encoding::Hex)), (Lines{"415A", "FF"}));
    EXPECT_EQ(line(opened("A\n", Encoding::Bin)), "01000001");
    EXPECT_EQ(line(opened("\xFF\n", Encoding::Oct)), "377");
}

// U+0A0A and U+0A0D hold the byte of a line feed, U+0100 and U+0A00 with their neighbours look like one across two units.
TEST(FileReadHandle, EndsWideLinesAtWholeUnitsOnly) {
    const std::string big("\x0A\x0A\x0A\x0D\x01\x00\x0A\x00\x00\x0A\x00" "B", 12);
    EXPECT_EQ(lines(opened(big, Encoding::Utf16BE)), (Lines{"\xE0\xA8\x8A\xE0\xA8\x8D\xC4\x80\xE0\xA8\x80", "B"}));
    const std::string little("\x00\x0A\x0A\x01\x0A\x00" "B\x00", 8);
    EXPECT_EQ(lines(opened(little, Encoding::Utf16LE)), (Lines{"\xE0\xA8\x80\xC4\x8A", "B"}));
}

TEST(FileReadHandle, SkipsTheMarkAtTheBeginning) {
    EXPECT_EQ(lines(opened("\xEF\xBB\xBF" "a\n\xEF\xBB\xBF" "b\n")), (Lines{"a", "\xEF\xBB\xBF" "b"}));
    EXPECT_EQ(lines(opened("\xEF\xBB\xBF", Encoding::Hex)), (Lines{"EFBBBF"}));
    EXPECT_EQ(lines(opened(std::string("\xFE\xFF\0A", 4), Encoding::Utf16)), (Lines{"A"}));
    // Where the order is named, the mark is a character.
    EXPECT_EQ(lines(opened(std::string("\xFE\xFF\0A", 4), Encoding::Utf16BE)), (Lines{"\xEF\xBB\xBF" "A"}));
    EXPECT_EQ(lines(opened(std::string("\xFF\xFE" "A\0", 4), Encoding::Utf16LE)), (Lines{"\xEF\xBB\xBF" "A"}));
    // Bytes have it.
    const COtxValue handle = opened("\xEF\xBB\xBF" "a\n");
    EXPECT_EQ(bytes(handle, -1, -1), "EFBBBF610A");
    EXPECT_EQ(bytes(handle, 0, 0), "");
    EXPECT_EQ(line(handle), "a");
}

TEST(FileReadHandle, HasNoLineInAFileOfAMarkOnly) {
    EXPECT_EQ(lines(opened("\xEF\xBB\xBF")), Lines{});
    EXPECT_EQ(lines(opened("\xFF\xFE", Encoding::Utf16)), Lines{});
    EXPECT_EQ(lines(opened("\xFE\xFF", Encoding::Utf16)), Lines{});
    EXPECT_EQ(lines(opened("\xEF\xBB\xBF\n")), (Lines{""}));
    EXPECT_EQ(lines(opened("\xFE\xFF", Encoding::Utf16BE)), (Lines{"\xEF\xBB\xBF"}));
    const COtxValue handle = opened("\xEF\xBB\xBF");
    EXPECT_EQ(OTX_THROWN_TEXT(line(handle)), "File 'some/path': the end is reached");
    EXPECT_EQ(bytes(handle, -1, -1), "EFBBBF");
}

TEST(FileReadHandle, KnowsTheByteOrderAlsoWhenBytesAreReadFirst) {
    const COtxValue handle = opened(std::string("\xFF\xFE" "A\0\n\0", 6), Encoding::Utf16);
    EXPECT_EQ(bytes(handle, 0, 2), "FFFE");
    EXPECT_EQ(line(handle), "A");
}

TEST(FileReadHandle, RefusesBytesThatAreNoTextAndGoesOnBehindThem) {
    const COtxValue handle = opened("\xFF\nnext\n\xC3\xA4 \xE2\x82");
    EXPECT_EQ(OTX_THROWN_KIND(line(handle)), fileFormat);
    EXPECT_EQ(line(handle), "next");
    EXPECT_EQ(OTX_THROWN_TEXT(line(handle)), "File 'some/path': The bytes are no text in UTF-8");
    EXPECT_TRUE(atEnd(handle));
    EXPECT_EQ(OTX_THROWN_KIND(line(opened("A", Encoding::Utf16LE))), fileFormat);
    EXPECT_EQ(OTX_THROWN_KIND(line(opened(std::string("\xD8\0\0A", 4), Encoding::Utf16BE))), fileFormat);
    EXPECT_EQ(OTX_THROWN_KIND(line(opened("\xE4", Encoding::UsAscii))), fileFormat);
    EXPECT_EQ(OTX_THROWN_TEXT(line(opened("A", Encoding::Utf16))), "File 'some/path': The bytes are no text in UTF-16");
}

TEST(FileReadHandle, RefusesWhenItIsNotOpen) {
    const COtxFileReadHandle unopened;
    EXPECT_EQ(unopened.ToString().String(), "");
    EXPECT_EQ(OTX_THROWN_KIND(line(unopened)), fileException);
    EXPECT_EQ(OTX_THROWN_KIND(bytes(unopened, -1, -1)), fileException);
    EXPECT_EQ(OTX_THROWN_KIND(atEnd(unopened)), fileException);
    unopened.FileHandle().Close();
    const COtxValue handle = opened("text");
    handle.FileHandle().Close();
    EXPECT_EQ(OTX_THROWN_TEXT(line(handle)), "File 'some/path': it is not open");
    handle.FileHandle().Close();
    EXPECT_EQ(OTX_THROWN_KIND(line(opened(std::shared_ptr<std::istream>()))), fileException);
}

TEST(FileReadHandle, GivesTheStreamBackWhenItIsClosed) {
    auto stream = std::make_shared<std::istringstream>("text");
    const COtxValue handle = opened(stream);
    const COtxValue copy = OTX::DeepCopy(handle);
    EXPECT_EQ(stream.use_count(), 2);
    copy.FileHandle().Close();
    EXPECT_EQ(stream.use_count(), 1);
    EXPECT_EQ(OTX_THROWN_KIND(line(handle)), fileException);
}

TEST(FileReadHandle, ReadsAStreamThatCannotSeek) {
    const auto drops = [](Encoding encoding, const std::string& content) {
        return opened(std::make_shared<StreamOver<Drops>>(content), encoding);
    };
    EXPECT_EQ(lines(drops(Encoding::Utf8, "\xEF\xBB\xBF" "one\r\ntwo")), (Lines{"one", "two"}));
    EXPECT_EQ(lines(drops(Encoding::Utf16, std::string("\xFF\xFE" "A\0\n\0B\0", 8))), (Lines{"A", "B"}));
    const COtxValue handle = drops(Encoding::Utf8, "ABCDEFGH");
    EXPECT_EQ(bytes(handle, 3, 2), "4445");
    EXPECT_EQ(bytes(handle, 6, 1), "47");
    EXPECT_EQ(OTX_THROWN_TEXT(bytes(handle, 0, 1)), "File 'some/path': there is no byte 0");
    EXPECT_EQ(line(handle), "H") << "the refused index is behind it";
    const COtxValue other = drops(Encoding::Utf8, "ABCDEFGH");
    EXPECT_EQ(OTX_THROWN_TEXT(bytes(other, 9, 1)), "File 'some/path': there is no byte 9");
    EXPECT_TRUE(atEnd(other)) << "all was read to know it";
}

TEST(FileReadHandle, TellsWhyTheStreamFails) {
    const COtxValue broken = opened(std::make_shared<StreamOver<Broken<SystemFailure>>>());
    EXPECT_EQ(OTX_THROWN_KIND(atEnd(broken)), fileAccess);
    const COtxValue other = opened(std::make_shared<StreamOver<Broken<SystemFailure>>>());
    EXPECT_EQ(OTX_THROWN_TEXT(line(other)), "File 'some/path': it can't be read: no connection");
    // The store's own exceptions stay what they are.
    EXPECT_EQ(OTX_THROWN_TEXT(line(opened(std::make_shared<StreamOver<Broken<FormatFailure>>>()))), "not packed");
    auto failed = std::make_shared<std::istringstream>("text");
    failed->setstate(std::ios::failbit);
    EXPECT_EQ(OTX_THROWN_KIND(line(opened(failed))), fileAccess);
    EXPECT_EQ(OTX_THROWN_KIND(line(opened(std::make_shared<std::istream>(nullptr)))), fileAccess);
}

TEST(FileReadHandle, ReadsALineOfFiftyMegabytes) {
    const std::string content = std::string(50'000'000, 'x') + "\nnext";
    const COtxValue handle = opened(content);
    EXPECT_EQ(line(handle).size(), 50'000'000u);
    EXPECT_EQ(line(handle), "next");
}

TEST(FileReadHandle, RefusesWhatHasNoEnd) {
    const COtxValue handle = opened(std::make_shared<StreamOver<Endless>>());
    EXPECT_EQ(OTX_THROWN_KIND(line(handle)), fileException);
    EXPECT_EQ(OTX_THROWN_TEXT(bytes(handle, -1, -1)), "File 'some/path': more than 268435456 bytes at once");
}

TEST(FileReadHandle, ServesTwoLanesAtOnce) {
    std::string content;
    for (int number = 0; number < 20'000; ++number) content += std::to_string(number) + '\n';
    const COtxValue handle = opened(content);
    Lines read[2];
    const auto readAll = [&handle](Lines& into) {
        while (true) {
            try {
                into.push_back(line(handle));
            } catch (const COtxValue&) {
                return;
            }
        }
    };
    std::thread other([&] { readAll(read[1]); });
    readAll(read[0]);
    other.join();
    // Each line came whole and once, and to each reader in order.
    std::vector<int> seen(20'000);
    for (const Lines& of : read) {
        int last = -1;
        for (const std::string& text : of) {
            int number = -1;
            std::from_chars(text.data(), text.data() + text.size(), number);
            ASSERT_GE(number, 0) << text;
            EXPECT_GT(number, last);
            last = number;
            ++seen[static_cast<std::size_t>(number)];
        }
    }
    for (const int times : seen) EXPECT_EQ(times, 1);
}

TEST(FileReadHandle, IsClosedUnderAReader) {
    std::string content;
    for (int number = 0; number < 20'000; ++number) content += "line\n";
    for (int round = 0; round < 20; ++round) {
        const COtxValue handle = opened(content);
        std::thread closing([&] { handle.FileHandle().Close(); });
        EXPECT_EQ(OTX_THROWN_KIND([&] { while (true) static_cast<void>(line(handle)); }()), fileException);
        closing.join();
    }
}
