// A connection to an SQLite database, and its statements.
#include "persistence/Database.h"

#include <sqlite3.h>

#include <chrono>
#include <system_error>

namespace velkotx::host {

namespace {

constexpr int waitInMilliseconds = 10'000;

// SQLite gives a meaning to names such as ":memory:" and "file:x", but to none that begins like this.
std::string literal(const std::string& file) {
    return file.starts_with('/') ? file : "./" + file;
}

bool isOfTheSystem(int code) {
    const int kind = code & 0xFF;
    return kind == SQLITE_CANTOPEN || kind == SQLITE_IOERR;
}

std::string reason(sqlite3* connection, int code) {
    const int error = connection != nullptr && isOfTheSystem(code) ? sqlite3_system_errno(connection) : 0;
    if (error != 0)
        return std::generic_category().message(error);
    switch (code & 0xFF) {
        case SQLITE_NOTADB: return "not a file of persisted values";
        case SQLITE_BUSY: return "another process holds the file";
        case SQLITE_READONLY: return "the file or its folder can't be written";
        case SQLITE_CORRUPT: return "the file is damaged";
        default: return connection != nullptr ? sqlite3_errmsg(connection) : sqlite3_errstr(code);
    }
}

// SQLite waits for others by itself, save with a lock in hand: while several at once change a new file to WAL.
int stepPatiently(sqlite3_stmt* statement) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::milliseconds(waitInMilliseconds);
    int code = sqlite3_step(statement);
    while ((code & 0xFF) == SQLITE_BUSY && Clock::now() < end) {
        sqlite3_reset(statement);
        sqlite3_sleep(1);
        code = sqlite3_step(statement);
    }
    return code;
}

void check(int code, const Database& database) {
    if (code != SQLITE_OK)
        database.fail(code);
}

}  // namespace

void Database::Close::operator()(sqlite3* connection) const {
    sqlite3_close(connection);
}

void Statement::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Database::Database(const std::string& file) {
    sqlite3* opened = nullptr;
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    const int code = sqlite3_open_v2(literal(file).c_str(), &opened, flags, nullptr);
    connection_.reset(opened);
    check(code, *this);
    check(sqlite3_busy_timeout(opened, waitInMilliseconds), *this);
    // What a foreign file may hold isn't run.
    check(sqlite3_db_config(opened, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr), *this);
    check(sqlite3_db_config(opened, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr), *this);
}

void Database::execute(const char* sql) {
    check(sqlite3_exec(connection_.get(), sql, nullptr, nullptr, nullptr), *this);
}

std::string Database::ask(const char* sql) {
    Statement question(*this, sql);
    return question.step() ? std::string(question.text(0)) : std::string();
}

bool Database::isReadOnly() const {
    return sqlite3_db_readonly(connection_.get(), "main") == 1;
}

void Database::fail(int code) const {
    throw DatabaseFailure(reason(connection_.get(), code));
}

Statement::Statement(const Database& database, const char* sql) : database_(database) {
    sqlite3_stmt* prepared = nullptr;
    const int code = sqlite3_prepare_v3(database.connection_.get(), sql, -1, SQLITE_PREPARE_PERSISTENT, &prepared, nullptr);
    statement_.reset(prepared);
    check(code, database);
}

void Statement::bind(int parameter, std::string_view text) {
    check(sqlite3_bind_text64(statement_.get(), parameter, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8), database_);
}

void Statement::bind(int parameter, std::int64_t number) {
    check(sqlite3_bind_int64(statement_.get(), parameter, number), database_);
}

bool Statement::step() {
    const int code = stepPatiently(statement_.get());
    if (code != SQLITE_ROW && code != SQLITE_DONE)
        database_.fail(code);
    return code == SQLITE_ROW;
}

std::string_view Statement::text(int column) const {
    const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
    if (text == nullptr)
        return {};
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column))};
}

std::int64_t Statement::number(int column) const {
    return sqlite3_column_int64(statement_.get(), column);
}

void Statement::reset() noexcept {
    sqlite3_reset(statement_.get());
    sqlite3_clear_bindings(statement_.get());
}

}  // namespace velkotx::host
