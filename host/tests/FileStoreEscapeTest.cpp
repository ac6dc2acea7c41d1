// No name leads out of the folder of the store.
#include "FileStoreFolder.h"

#include <atomic>
#include <thread>

namespace velkotx::host {
namespace {

using namespace testing;

class FileStoreEscape : public FileStoreFolder {
protected:
    FileStoreEscape() {
        std::ofstream(outside / "secret.txt") << "secret";
        std::ofstream(outside / "secret.txt.meta.json") << R"({"format":"secret"})";
        write("a.txt", "x");
    }

    // Neither the file nor metadata beside it.
    void expectRefused(const std::string& name) {
        const std::string told = refusal([&] { content(store, name); });
        EXPECT_EQ(told.substr(0, 2), "35") << name << ": " << told;
        const std::string toldMore = refusal([&] { store.MetaData(file(name), Hvt::Fs::Caches::DEFAULT); });
        EXPECT_EQ(toldMore.substr(0, 2), "35") << name << ": " << toldMore;
    }

    FolderFileStore store{folder.string()};
};

TEST_F(FileStoreEscape, ByDots) {
    for (const char* const name : {"../secret.txt", "inner/../../secret.txt", "inner/../a.txt", "./a.txt", "inner/./b.txt",
                                   "../files/a.txt"})
        expectRefused(name);
    for (const char* const name : {"..", ".", "inner/.."})
        EXPECT_EQ(refusal([&] { content(store, name); }).substr(0, 2), "35") << name;
}

// Metadata is asked ahead of the file, and its name is nobody's business.
TEST_F(FileStoreEscape, IsToldByTheNameOfTheFile) {
    EXPECT_EQ(refusal([&] { store.MetaData(file("../secret.txt"), Hvt::Fs::Caches::DEFAULT); }),
              "35 File '../secret.txt': no name of a file in the store");
}

TEST_F(FileStoreEscape, ByAnAbsoluteName) {
    expectRefused((outside / "secret.txt").string());
    expectRefused((folder / "a.txt").string());
    expectRefused("//a.txt");
    expectRefused("inner//a.txt");
    for (const char* const name : {"a.txt/", "inner/", ""})
        expectRefused(name);
}

TEST_F(FileStoreEscape, ByAZeroByte) {
    EXPECT_EQ(refusal([&] { content(store, std::string("a.txt\0x", 7)); }).substr(0, 2), "35");
    expectRefused(std::string("\0/../../secret.txt", 18));
    EXPECT_EQ(refusal([&] { content(store, std::string("a\0b", 3)); }), "35 File 'a\\0b': no name of a file in the store");
}

TEST_F(FileStoreEscape, ByALinkToAFile) {
    std::filesystem::create_symlink(outside / "secret.txt", folder / "link.txt");
    std::filesystem::create_symlink("../secret.txt", folder / "relative.txt");
    std::filesystem::create_symlink("a.txt", folder / "harmless.txt");
    for (const char* const name : {"link.txt", "relative.txt", "harmless.txt"})
        EXPECT_EQ(refusal([&] { content(store, name); }), "35 File '" + std::string(name) + "': a symbolic link isn't followed");
}

TEST_F(FileStoreEscape, ByALinkToAFolder) {
    std::filesystem::create_directory_symlink(outside, folder / "up");
    std::filesystem::create_directory_symlink("inner", folder / "harmless");
    write("inner/b.txt", "x");
    expectRefused("up/secret.txt");
    expectRefused("up/files/a.txt");
    expectRefused("harmless/b.txt");
}

TEST_F(FileStoreEscape, ByALinkThatIsMetaData) {
    std::filesystem::create_symlink(outside / "secret.txt.meta.json", folder / "a.txt.meta.json");
    EXPECT_EQ(refusal([&] { store.MetaData(file("a.txt"), Hvt::Fs::Caches::DEFAULT); }).substr(0, 2), "35");
}

// Another process swaps a folder for a link all the while.
TEST_F(FileStoreEscape, ByALinkThatComesInBetween) {
    std::ofstream(outside / "b.txt") << "secret";
    write("inner/b.txt", "mine");
    std::filesystem::create_directory_symlink(outside, folder / "link");
    std::atomic<bool> isOver = false;
    std::thread swapping([&] {
        while (!isOver) {
            std::filesystem::rename(folder / "inner", folder / "aside");
            std::filesystem::rename(folder / "link", folder / "inner");
            std::filesystem::rename(folder / "inner", folder / "link");
            std::filesystem::rename(folder / "aside", folder / "inner");
        }
    });
    int found = 0;
    for (int round = 0; round < 20'000; ++round) {
        std::string read;
        const std::string told = refusal([&] { read = content(store, "inner/b.txt"); });
        EXPECT_NE(read, "secret");
        if (read == "mine")
            ++found;
        else
            EXPECT_TRUE(told.starts_with("35") || told.starts_with("39")) << told;
    }
    isOver = true;
    swapping.join();
    EXPECT_GT(found, 0);
}

}  // namespace
}  // namespace velkotx::host
