// A folder for the store of one test, and what the tests do with its file.
#pragma once

#include "persistence/SqlitePersistence.h"

#include <otx/value/Values.h>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace velkotx::host::testing {

// Empty at first, and gone with the test.
class PersistenceFolder : public ::testing::Test {
protected:
    PersistenceFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "persistence-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("no folder for the test");
        folder = pattern;
        file = (folder / "values.db").string();
    }
    ~PersistenceFolder() override { std::filesystem::remove_all(folder); }

    // The refusal to open the file; empty if it can be opened.
    std::string refusal() const {
        try {
            const SqlitePersistence store(file);
            return "";
        } catch (const std::runtime_error& failure) {
            return failure.what();
        }
    }

    // What anybody can do to a database.
    void execute(const std::string& sql) const {
        sqlite3* connection = nullptr;
        ASSERT_EQ(sqlite3_open(file.c_str(), &connection), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(connection);
        sqlite3_close(connection);
    }

    std::string bytes() const {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    void write(const std::string& content) const { std::ofstream(file, std::ios::binary) << content; }

    std::filesystem::path folder;
    std::string file;
};

// What is stored; the empty value if nothing is.
inline COtxValue loaded(SqlitePersistence& store, const std::string& name) {
    COtxValue value;
    store.Load(name, value);
    return value;
}

inline std::string text(const COtxValue& value) { return value.String(); }

}  // namespace velkotx::host::testing
