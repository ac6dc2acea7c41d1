// The file of persisted values.
#include "persistence/StoreFile.h"

#include "vehicle/Crc32.h"

#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <span>

namespace velkotx::host {

namespace {

// "VOTX" in the database's header.
constexpr const char* ourMark = "1448039512";
// Of the layout of the table and of the form of its values. What a reader of this version would misread takes the next one.
constexpr int ourVersion = 1;

constexpr const char* ourTable =
    "CREATE TABLE value (name TEXT NOT NULL PRIMARY KEY, json TEXT NOT NULL, crc32 INTEGER NOT NULL) STRICT, WITHOUT ROWID";

constexpr const char* notOurs = "not a file of persisted values";
constexpr const char* damaged = "the file is damaged";

bool isEmpty(Database& database) {
    return database.ask("PRAGMA application_id") == "0" && database.ask("PRAGMA user_version") == "0" &&
           database.ask("SELECT count(*) FROM sqlite_schema") == "0";
}

void requireOurs(Database& database) {
    if (database.ask("PRAGMA application_id") != ourMark)
        throw DatabaseFailure(notOurs);
    const std::string version = database.ask("PRAGMA user_version");
    if (version != std::to_string(ourVersion))
        throw DatabaseFailure("persisted values of version " + version + ", this program knows version " +
                              std::to_string(ourVersion));
    if (database.ask("SELECT group_concat(sql) FROM sqlite_schema") != ourTable)
        throw DatabaseFailure(damaged);
}

// Two processes may find the file empty at once; the second one finds it made.
void makeIfEmpty(Database& database) {
    database.execute("BEGIN IMMEDIATE");
    if (isEmpty(database)) {
        database.execute(ourTable);
        database.execute(("PRAGMA application_id = " + std::string(ourMark)).c_str());
        database.execute(("PRAGMA user_version = " + std::to_string(ourVersion)).c_str());
    }
    database.execute("COMMIT");
}

// A killed process loses nothing that was committed: the system has it. Only a system that goes down may lose the last
// commits since the last checkpoint, of which there is one at the latest when the file is closed.
void choosePace(Database& database) {
    if (database.ask("PRAGMA journal_mode = WAL") != "wal")
        throw DatabaseFailure("the file system lacks the shared memory or the locks that several processes need");
    database.execute("PRAGMA synchronous = NORMAL");
}

void requireUndamaged(Database& database) {
    if (database.ask("PRAGMA quick_check(1)") != "ok")
        throw DatabaseFailure(damaged);
    Statement values(database, "SELECT name, json, crc32 FROM value");
    while (values.step()) {
        if (checksum(values.text(0), values.text(1)) != values.number(2))
            throw DatabaseFailure(damaged);
    }
}

// Of a file that can't be made the system says at last that it isn't there.
void requireWritableFolder(const std::string& file) {
    std::error_code error;
    const auto folder = std::filesystem::absolute(file, error).parent_path();
    if (std::filesystem::is_directory(folder, error) && faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) != 0)
        throw DatabaseFailure("the folder can't be written");
}

// SQLite would make a device or a pipe into a database, and takes a file of a single byte for an empty one.
void requireUsable(const std::string& file) {
    constexpr std::uintmax_t smallestDatabase = 512;
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (!std::filesystem::exists(status))
        return requireWritableFolder(file);
    if (!std::filesystem::is_regular_file(status))
        throw DatabaseFailure("not a plain file");
    const std::uintmax_t size = std::filesystem::file_size(file, error);
    if (!error && size > 0 && size < smallestDatabase)
        throw DatabaseFailure(notOurs);
}

}  // namespace

Database openStoreFile(const std::string& file) {
    requireUsable(file);
    Database database(file);
    const bool isNew = isEmpty(database);
    if (!isNew)
        requireOurs(database);
    if (database.isReadOnly())
        throw DatabaseFailure("the file can't be written");
    choosePace(database);
    if (isNew) {
        makeIfEmpty(database);
        requireOurs(database);
    }
    requireUndamaged(database);
    return database;
}

std::uint32_t checksum(std::string_view name, std::string_view json) {
    const auto bytes = [](std::string_view text) {
        return std::span(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    };
    constexpr std::string_view end("\0", 1);
    return crc32(bytes(json), crc32(bytes(end), crc32(bytes(name))));
}

}  // namespace velkotx::host
