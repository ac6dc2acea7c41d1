// A connection to an SQLite database, and its statements. Inside of the persistence store only.
#pragma once

#include "persistence/DatabaseFailure.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace velkotx::host {

// One thread at a time, together with its statements. All operations throw DatabaseFailure.
class Database {
public:
    // Creates the file if there is none. A name is a name, whatever SQLite takes it for. Other processes that hold the file are
    // waited for, at most 10 seconds.
    explicit Database(const std::string& file);

    // SQL without results.
    void execute(const char* sql);
    // The one value of the first row; empty without a row.
    std::string ask(const char* sql);
    bool isReadOnly() const;

    // Why the last operation failed.
    [[noreturn]] void fail(int code) const;

private:
    friend class Statement;
    struct Close {
        void operator()(sqlite3* connection) const;
    };

    std::unique_ptr<sqlite3, Close> connection_;
};

// A prepared statement, to be used again and again. Texts are only lent to it until it is reset.
class Statement {
public:
    Statement(const Database& database, const char* sql);

    void bind(int parameter, std::string_view text);
    void bind(int parameter, std::int64_t number);
    // Whether there is a row, which lasts until the next step or reset.
    bool step();
    std::string_view text(int column) const;
    std::int64_t number(int column) const;
    // Ends its transaction, if it has one of its own.
    void reset() noexcept;

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };

    const Database& database_;
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

// Resets a statement at the end of its use.
class StatementUse {
public:
    explicit StatementUse(Statement& statement) : statement_(statement) {}
    StatementUse(const StatementUse&) = delete;
    StatementUse& operator=(const StatementUse&) = delete;
    ~StatementUse() { statement_.reset(); }

private:
    Statement& statement_;
};

}  // namespace velkotx::host
