// What the store over a folder finds, and what it tells about it.
#include "FileStoreFolder.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <thread>
#include <vector>

namespace velkotx::host {
namespace {

using namespace testing;

class FileStore : public FileStoreFolder {
protected:
    std::string openRefusal(const std::string& name) {
        return refusal([&] { store.Open(file(name), Hvt::Fs::Caches::DEFAULT); });
    }
    COtxValue metaData(const std::string& name) { return store.MetaData(file(name), Hvt::Fs::Caches::DEFAULT); }
    std::string metaDataRefusal(const std::string& name) {
        return refusal([&] { metaData(name); });
    }

    FolderFileStore store{folder.string()};
};

TEST_F(FileStore, OpensFilesOfTheFolderAndBelow) {
    write("a.txt", "first");
    write("inner/b.txt", "second");
    write("name with blanks \xC3\xA4.txt", "third");
    write("...", "dots");
    EXPECT_EQ(content(store, "a.txt"), "first");
    EXPECT_EQ(content(store, "inner/b.txt"), "second");
    EXPECT_EQ(content(store, "name with blanks \xC3\xA4.txt"), "third");
    EXPECT_EQ(content(store, "..."), "dots");
}

TEST_F(FileStore, MissesWithoutAText) {
    write("a.txt", "");
    EXPECT_EQ(openRefusal("b.txt"), "39 ");
    EXPECT_EQ(openRefusal("nowhere/b.txt"), "39 ");
    EXPECT_EQ(openRefusal("a.txt/b.txt"), "39 ");
    EXPECT_EQ(openRefusal(std::string(5000, 'x')), "39 ");
    EXPECT_EQ(refusal([&] { store.Open({"a.txt", "FLASH"}, Hvt::Fs::Caches::DEFAULT); }), "39 ");
    EXPECT_EQ(refusal([&] { store.Open(file("a.txt"), "other"); }), "39 ");
}

TEST_F(FileStore, OpensPlainFilesOnly) {
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(openRefusal("inner"), "40 File 'inner': no plain file");
    // Nobody writes to the pipe: opening it must not wait.
    EXPECT_EQ(openRefusal("pipe"), "40 File 'pipe': no plain file");
}

// The superuser may read everything, so it has to be somebody else.
TEST_F(FileStore, TellsAMissingRight) {
    constexpr uid_t nobody = 65534;
    const uid_t before = geteuid();
    write("secret.txt", "x");
    chmod((folder / "secret.txt").c_str(), 0);
    chmod(folder.c_str(), 0755);
    ASSERT_TRUE(before != 0 || seteuid(nobody) == 0);
    const std::string told = openRefusal("secret.txt");
    ASSERT_EQ(seteuid(before), 0);
    EXPECT_EQ(told, "35 File 'secret.txt': Permission denied");
}

TEST_F(FileStore, TellsThatNothingMoreCanBeOpened) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the check of types needs descriptors of its own";
#endif
    write("a.txt", "x");
    rlimit before{};
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit none{0, before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    const std::string told = openRefusal("a.txt");
    setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_EQ(told, "40 File 'a.txt': Too many open files");
}

TEST_F(FileStore, RefusesWhatIsNoFolder) {
    write("a.txt", "x");
    EXPECT_THROW(FolderFileStore((folder / "a.txt").string()), std::runtime_error);
    EXPECT_THROW(FolderFileStore((folder / "nowhere").string()), std::runtime_error);
    EXPECT_THROW(FolderFileStore(""), std::runtime_error);
}

TEST_F(FileStore, KeepsItsFolderWhereverThatGoes) {
    write("a.txt", "here");
    std::filesystem::rename(folder, outside / "moved");
    std::filesystem::create_directory(folder);
    write("a.txt", "another");
    EXPECT_EQ(content(store, "a.txt"), "here");
}

TEST_F(FileStore, TellsTheMetaDataBesideTheFile) {
    write("a.txt", "x");
    write("a.txt.meta.json", R"({"format":"gzip","version":2})");
    const COtxValue told = metaData("a.txt");
    EXPECT_EQ(OTX::GetParameter(told, Hvt::Fs::MetaData::FORMAT, OTX::ValueType::String).String(), "gzip");
    EXPECT_EQ(OTX::GetParameter(told, "version", OTX::ValueType::Integer).Int(), 2);
}

TEST_F(FileStore, HasNoMetaDataForMostFiles) {
    write("a.txt", "x");
    for (const char* const name : {"a.txt", "nowhere.txt", "nowhere/a.txt", "a.txt.meta.json"})
        EXPECT_TRUE(metaData(name).Map().empty()) << name;
    EXPECT_TRUE(store.MetaData(file("a.txt"), "other").Map().empty());
}

TEST_F(FileStore, RefusesMetaDataThatIsNoObject) {
    for (const char* const json : {"", "[]", "7", "{", "{}{}", "\xFF"}) {
        write("a.txt.meta.json", json);
        EXPECT_EQ(metaDataRefusal("a.txt").substr(0, 27), "37 File 'a.txt.meta.json': ") << json;
    }
    write("a.txt.meta.json", std::string(65536, '['));
    EXPECT_EQ(metaDataRefusal("a.txt").substr(0, 2), "37");
    write("a.txt.meta.json", "{}" + std::string(65535, ' '));
    EXPECT_EQ(metaDataRefusal("a.txt"), "37 File 'a.txt.meta.json': more than 65536 bytes");
    write("a.txt.meta.json", "{}" + std::string(65534, ' '));
    EXPECT_EQ(metaDataRefusal("a.txt"), "");
}

TEST_F(FileStore, HidesItsMetaData) {
    write("a.txt.meta.json", "{}");
    EXPECT_EQ(openRefusal("a.txt.meta.json"), "39 ");
}

TEST_F(FileStore, DecodesItsOwnFilesOnly) {
    class Strange : public Hvt::Fs::Stored {};
    EXPECT_EQ(refusal([&] { store.Decode(std::make_shared<Strange>(), ""); }), "40 A file of another store");
    EXPECT_EQ(refusal([&] { store.Decode(nullptr, ""); }), "40 A file of another store");
    write("a.txt", "x");
    EXPECT_EQ(refusal([&] { decoded(store, "a.txt", "GZIP"); }), "37 File 'a.txt': the format 'GZIP' is unknown");
}

TEST_F(FileStore, GivesEachStreamAPlaceOfItsOwn) {
    write("a.txt", "one two");
    const auto stored = store.Open(file("a.txt"), Hvt::Fs::Caches::DEFAULT);
    const auto first = store.Decode(stored, "");
    const auto second = store.Decode(stored, "");
    std::string word;
    *first >> word;
    EXPECT_EQ(word, "one");
    *second >> word;
    EXPECT_EQ(word, "one");
    *first >> word;
    EXPECT_EQ(word, "two");
}

TEST_F(FileStore, ServesManyThreads) {
    write("a.txt", "plain");
    write("b.txt", packed("unpacked"));
    write("b.txt.meta.json", R"({"format":"gzip"})");
    std::vector<std::thread> threads;
    std::vector<int> right(4);
    for (int& count : right) {
        threads.emplace_back([this, &count] {
            for (int round = 0; round < 200; ++round) {
                const bool isRight = content(store, "a.txt") == "plain" && content(store, "b.txt", "gzip") == "unpacked";
                if (isRight && metaData("b.txt").Map().size() == 1)
                    ++count;
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(right, std::vector<int>(4, 200));
}

}  // namespace
}  // namespace velkotx::host
