// The file of the store: whose it is, its version, damage of every kind, a disk that is full.
#include "PersistenceFolder.h"

#include <otx/value/IException.h>

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <map>
#include <vector>

namespace velkotx::host {
namespace {

using namespace testing;

constexpr const char* foreign = "not a file of persisted values";
constexpr const char* damaged = "the file is damaged";

class PersistenceFile : public PersistenceFolder {
protected:
    // A file that is closed, with some values.
    void save(const std::map<std::string, std::string>& values) const {
        SqlitePersistence store(file);
        for (const auto& [name, content] : values)
            store.Save(name, COtxString(content));
    }
    // Whether a file of the bytes is either refused or gives exactly these values, with a clear word in every case.
    void expectRefusedOrWhole(const std::string& content, const std::map<std::string, std::string>& values, const std::string& what) const {
        for (const char* const beside : {"-wal", "-shm", "-journal"})
            std::filesystem::remove(file + beside);
        write(content);
        try {
            SqlitePersistence store(file);
            for (const auto& [name, value] : values)
                EXPECT_TRUE(loaded(store, name) == COtxString(value)) << name << " after damage of " << what;
        } catch (const std::runtime_error& refused) {
            EXPECT_STRNE(refused.what(), "") << what;
        }
    }
};

TEST_F(PersistenceFile, OfAnEmptyOneIsMade) {
    write("");
    EXPECT_EQ(refusal(), "");
    EXPECT_GT(bytes().size(), 0U);
}

TEST_F(PersistenceFile, IsTheOnlyOneLeftWhenTheStoreIsClosed) {
    save({{"x", "1"}});
    const std::filesystem::directory_iterator files(folder);
    EXPECT_EQ(std::distance(begin(files), end(files)), 1);
}

TEST_F(PersistenceFile, HasTheNameThatItIsGiven) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder);
    for (const std::string name : {":memory:", "file:x?mode=memory", "plain", "with blank"}) {
        { SqlitePersistence(name).Save("x", COtxInt(1)); }
        EXPECT_TRUE(std::filesystem::exists(folder / name)) << name;
    }
    std::filesystem::current_path(before);
}

TEST_F(PersistenceFile, ThatCantBeOpenedSaysWhy) {
    file = (folder / "none" / "values.db").string();
    EXPECT_EQ(refusal(), "No such file or directory");
    file = folder.string();
    EXPECT_EQ(refusal(), "not a plain file");
    file = "/dev/null";
    EXPECT_EQ(refusal(), "not a plain file");
}

TEST_F(PersistenceFile, OfAnotherProgramIsRefusedAndLeftAsItIs) {
    execute("CREATE TABLE value (name, json, crc32)");
    const std::string before = bytes();
    EXPECT_EQ(refusal(), foreign);
    EXPECT_EQ(bytes(), before);
    write("<?xml version=\"1.0\"?>");
    EXPECT_EQ(refusal(), foreign);
    EXPECT_EQ(bytes(), "<?xml version=\"1.0\"?>");
}

TEST_F(PersistenceFile, OfAnotherVersionIsRefusedAndLeftAsItIs) {
    for (const std::string version : {"2", "-1", "0", "2147483647"}) {
        std::filesystem::remove(file);
        save({{"x", "1"}});
        execute("PRAGMA user_version = " + version);
        const std::string before = bytes();
        EXPECT_EQ(refusal(), "persisted values of version " + version + ", this program knows version 1");
        EXPECT_EQ(bytes(), before);
    }
}

TEST_F(PersistenceFile, ThatCantBeWrittenIsRefused) {
    save({{"x", "1"}});
    constexpr std::size_t writeVersion = 18;
    std::string changed = bytes();
    changed[writeVersion] = 3;
    write(changed);
    EXPECT_EQ(refusal(), "the file can't be written");
    EXPECT_EQ(bytes(), changed);
}

TEST_F(PersistenceFile, InAFolderThatCantBeWrittenIsRefused) {
    using std::filesystem::perms;
    constexpr perms readable{0555};
    const auto refusalForOthers = [&] {
        std::filesystem::permissions(folder, readable);
        const bool isSuperuser = geteuid() == 0;  // who may write everywhere
        EXPECT_EQ(isSuperuser ? seteuid(65534) : 0, 0);
        std::string refused = refusal();
        EXPECT_EQ(isSuperuser ? seteuid(0) : 0, 0);
        std::filesystem::permissions(folder, perms::owner_all);
        return refused;
    };
    EXPECT_EQ(refusalForOthers(), "the folder can't be written");
    save({{"x", "1"}});
    std::filesystem::permissions(file, perms::all);
    EXPECT_EQ(refusalForOthers(), "the file or its folder can't be written");
}

TEST_F(PersistenceFile, WithMoreInItThanValuesIsRefused) {
    save({{"x", "1"}});
    execute("CREATE VIEW more AS SELECT * FROM value");
    EXPECT_EQ(refusal(), damaged);
}

TEST_F(PersistenceFile, WithAValueThatWasChangedByHandIsRefused) {
    for (const std::string change : {"UPDATE value SET json = '2'", "UPDATE value SET name = 'y'", "UPDATE value SET crc32 = crc32 + 1"}) {
        std::filesystem::remove(file);
        save({{"x", "1"}});
        execute(change);
        EXPECT_EQ(refusal(), damaged);
    }
}

TEST_F(PersistenceFile, WhoseValueIsChangedWhileItIsOpenFailsTheLoadOfThatValueOnly) {
    SqlitePersistence store(file);
    store.Save("x", COtxInt(1));
    store.Save("y", COtxInt(2));
    execute("UPDATE value SET json = '3' WHERE name = 'x'");
    COtxValue value = COtxString("mine");
    try {
        store.Load("x", value);
        ADD_FAILURE() << value;
    } catch (const COtxValue& exception) {
        EXPECT_EQ(exception.Exception().Kind(), OTX::Exceptions_e::PersistenceException);
        EXPECT_EQ(exception.Exception().Text(), "'x' can't be loaded: the file is damaged");
    }
    EXPECT_EQ(text(value), "mine");
    EXPECT_EQ(loaded(store, "y").Int(), 2);
    store.Save("x", COtxInt(4));
    EXPECT_EQ(loaded(store, "x").Int(), 4);
}

TEST_F(PersistenceFile, InWhichAnyByteIsDamagedNeverGivesAnotherValue) {
    const std::map<std::string, std::string> values{{"battery", "12.6 V"}, {"name", std::string(300, 'n')}, {"x", "1"}};
    save(values);
    const std::string whole = bytes();
    // Free space, which is zero, is most of the file and is only sampled.
    for (std::size_t place = 0; place < whole.size(); ++place) {
        if (whole[place] == 0 && place % 61 != 0 && place > 128)
            continue;
        for (const int mask : {0x01, 0x80, 0xFF}) {
            std::string changed = whole;
            changed[place] = static_cast<char>(changed[place] ^ mask);
            expectRefusedOrWhole(changed, values, "byte " + std::to_string(place) + " with mask " + std::to_string(mask));
        }
    }
}

TEST_F(PersistenceFile, ThatBreaksOffAnywhereNeverGivesAnotherValue) {
    std::map<std::string, std::string> values;
    for (int number = 0; number < 20; ++number)
        values.emplace("name" + std::to_string(number), std::string(1000, static_cast<char>('a' + number)));
    save(values);
    const std::string whole = bytes();
    ASSERT_GT(whole.size(), 4 * 4096U);
    for (std::size_t size = 1; size < whole.size(); size += 509)
        expectRefusedOrWhole(whole.substr(0, size), values, "the first " + std::to_string(size) + " bytes");
    write(whole.substr(0, whole.size() - 4096));
    EXPECT_EQ(refusal(), damaged);
    for (const std::size_t size : {1U, 50U, 511U}) {
        write(whole.substr(0, size));
        EXPECT_EQ(refusal(), foreign);
        EXPECT_EQ(bytes().size(), size);
    }
}

TEST_F(PersistenceFile, ThatIsDamagedInTheMiddleIsRefused) {
    std::map<std::string, std::string> values;
    for (int number = 0; number < 20; ++number)
        values.emplace("name" + std::to_string(number), std::string(1000, static_cast<char>('a' + number)));
    save(values);
    std::string changed = bytes();
    std::fill(changed.begin() + 8192, changed.begin() + 12288, '\xA5');
    write(changed);
    EXPECT_EQ(refusal(), damaged);
}

TEST_F(PersistenceFile, ThatCantGrowFailsTheSaveAndKeepsTheFormerValues) {
    SqlitePersistence store(file);
    store.Save("x", COtxString("before"));
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit unlimited = limit;
    limit.rlim_cur = 100'000;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    const COtxValue large = COtxString(std::string(200'000, 'x'));
    EXPECT_THROW(store.Save("x", large), COtxValue);
    EXPECT_EQ(text(loaded(store, "x")), "before");
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &unlimited), 0);
    store.Save("x", large);
    EXPECT_EQ(loaded(store, "x"), large);
}

}  // namespace
}  // namespace velkotx::host
