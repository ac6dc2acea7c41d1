// The streams of the store over a folder: places in them, and packed contents.
#include "FileStoreFolder.h"

#include <otx/value/COtxFileReadHandle.h>

#include <sys/resource.h>

#include <initializer_list>
#include <limits>

namespace velkotx::host {
namespace {

using namespace testing;

// More than any buffer on the way, and no period.
std::string longContent() {
    std::string text;
    for (int number = 0; text.size() < 300'000; ++number) text += std::to_string(number * 7919) + '\n';
    return text;
}

class FileStoreStream : public FileStoreFolder {
protected:
    // The plain content, from places forwards and backwards.
    void expectPlaces(const std::string& name, const std::string& format) {
        const std::string all = longContent();
        const auto stream = decoded(store, name, format);
        const std::size_t size = all.size();
        for (const std::size_t place : std::initializer_list<std::size_t>{0, size - 10, 65'536, 65'530, 200'000, 199'990, 1, size}) {
            ASSERT_TRUE(stream->seekg(static_cast<std::streamoff>(place)));
            EXPECT_EQ(stream->tellg(), std::streampos(static_cast<std::streamoff>(place)));
            std::string read(20, '\0');
            stream->read(read.data(), 20);
            read.resize(static_cast<std::size_t>(stream->gcount()));
            EXPECT_EQ(read, all.substr(place, 20)) << place;
            stream->clear();
        }
        stream->seekg(100);
        stream->seekg(-60, std::ios::cur);
        EXPECT_EQ(rest(*stream->rdbuf()), all.substr(40));
        EXPECT_FALSE(stream->seekg(0, std::ios::end));
        stream->clear();
        EXPECT_FALSE(stream->seekg(-1));
    }
    std::string readRefusal(const std::string& content) {
        write("bad", content);
        return refusal([&] { testing::content(store, "bad", "gzip"); });
    }

    FolderFileStore store{folder.string()};
};

TEST_F(FileStoreStream, SeeksInAPlainFile) {
    write("a", longContent());
    expectPlaces("a", "");
}

TEST_F(FileStoreStream, SeeksInAPackedFile) {
    write("a", packed(longContent()));
    expectPlaces("a", "gzip");
    const auto stream = decoded(store, "a", "gzip");
    EXPECT_FALSE(stream->seekg(1'000'000));
}

TEST_F(FileStoreStream, HasNoByteWhereNoFileGoes) {
    write("a.txt", "abc");
    auto stream = decoded(store, "a.txt");
    const COtxFileReadHandle handle(stream, COtxStringEncoding::Utf8, COtxString("a.txt"));
    const auto refusedAt = [&](std::int64_t index, std::int64_t count) {
        return refusal([&] { handle.FileReadHandle().ReadBytes(index, count); });
    };
    EXPECT_EQ(refusedAt(3, 0), "");
    EXPECT_EQ(refusedAt(4, 0), "36 File 'a.txt': there is no byte 4");
    for (const std::int64_t index : {std::int64_t{1} << 40, std::numeric_limits<std::int64_t>::max() - 65536,
                                     std::numeric_limits<std::int64_t>::max()})
        EXPECT_EQ(refusedAt(index, 1), "36 File 'a.txt': there is no byte " + std::to_string(index));
}

TEST_F(FileStoreStream, UnpacksMembersOneBehindTheOther) {
    const std::string all = longContent();
    write("a", packed(all.substr(0, 100'000)) + packed("") + packed(all.substr(100'000)));
    EXPECT_EQ(content(store, "a", "gzip"), all);
    expectPlaces("a", "gzip");
    write("nothing", packed(""));
    EXPECT_EQ(content(store, "nothing", "gzip"), "");
}

TEST_F(FileStoreStream, RefusesWhatIsNotPackedWell) {
    const std::string whole = packed(longContent());
    const std::string breaksOff = "37 File 'bad': the packed content breaks off";
    const std::string damaged = "37 File 'bad': the packed content is damaged";
    EXPECT_EQ(readRefusal(whole), "");
    EXPECT_EQ(readRefusal(""), breaksOff);
    EXPECT_EQ(readRefusal("plain text"), damaged);
    EXPECT_EQ(readRefusal(whole + "rest"), damaged);
    for (std::size_t length = 1; length < whole.size(); length += 1 + length / 10)
        EXPECT_EQ(readRefusal(whole.substr(0, length)), breaksOff) << length;
    EXPECT_EQ(readRefusal(whole.substr(0, whole.size() - 1)), breaksOff);
    // The checksum and the length at the end.
    for (std::size_t back = 1; back <= 8; ++back) {
        std::string changed = whole;
        changed[changed.size() - back] = static_cast<char>(changed[changed.size() - back] ^ 1);
        EXPECT_EQ(readRefusal(changed), damaged) << back;
    }
}

TEST_F(FileStoreStream, TellsTheKindThroughTheHandle) {
    write("bad", "plain text");
    auto stream = decoded(store, "bad", "gzip");
    const COtxFileReadHandle handle(stream, COtxStringEncoding::Utf8, COtxString("bad"));
    EXPECT_EQ(refusal([&] { handle.FileReadHandle().IsEof(); }), "37 File 'bad': the packed content is damaged");
}

// A file of half a megabyte that holds half a gigabyte: no more than a few buffers of it are in memory at once.
TEST_F(FileStoreStream, UnpacksABombPieceByPiece) {
    const std::string piece = packed(std::string(std::size_t{64} << 20, '\0'));
    std::string bomb;
    for (int count = 0; count < 8; ++count) bomb += piece;
    write("bomb", bomb);
    auto stream = decoded(store, "bomb", "gzip");
    rusage before{};
    getrusage(RUSAGE_SELF, &before);
    std::size_t size = 0;
    std::string buffer(1 << 20, '\0');
    const auto room = static_cast<std::streamsize>(buffer.size());
    while (const auto count = stream->rdbuf()->sgetn(buffer.data(), room)) size += static_cast<std::size_t>(count);
    rusage after{};
    getrusage(RUSAGE_SELF, &after);
    EXPECT_EQ(size, std::size_t{512} << 20);
    EXPECT_LT(after.ru_maxrss - before.ru_maxrss, 16 * 1024) << "kilobytes";
    // As a single line it is refused.
    auto again = decoded(store, "bomb", "gzip");
    const COtxFileReadHandle handle(again, COtxStringEncoding::Utf8, COtxString("bomb"));
    EXPECT_EQ(refusal([&] { handle.FileReadHandle().ReadLine(); }), "36 File 'bomb': more than 268435456 bytes at once");
}

}  // namespace
}  // namespace velkotx::host
