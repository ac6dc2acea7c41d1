// A store of values in one SQLite file.
#include "persistence/SqlitePersistence.h"

#include "persistence/Database.h"
#include "persistence/StoreFile.h"
#include "persistence/StoredForm.h"

#include <otx/log/CLog.h>
#include <otx/value/COtxException.h>
#include <otx/value/Json.h>

#include <pthread.h>

#include <mutex>
#include <optional>

namespace velkotx::host {

namespace {

using Kind = OTX::Exceptions_e;

// The library of the database isn't written for a thread that ends inside of it.
class CancellationHeld {
public:
    CancellationHeld() { pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &before_); }
    CancellationHeld(const CancellationHeld&) = delete;
    CancellationHeld& operator=(const CancellationHeld&) = delete;
    ~CancellationHeld() { pthread_setcancelstate(before_, nullptr); }

private:
    int before_ = PTHREAD_CANCEL_ENABLE;
};

[[noreturn]] void failToSave(const std::string& name, const std::string& cause) {
    constexpr Hvt::TLogSubSys trace = 3;
    const std::string text = "'" + name + "' can't be saved: " + cause;
    if (Hvt::CLog::ReportingLevel(trace) >= 0)
        Hvt::CLog(trace).Get(0, trace) << "persistence: " << text;
    throw COtxException(Kind::PersistenceSaveException, text);
}

[[noreturn]] void failToLoad(const std::string& name, const std::string& cause) {
    throw COtxException(Kind::PersistenceException, "'" + name + "' can't be loaded: " + cause);
}

}  // namespace

class SqlitePersistence::Connection {
public:
    explicit Connection(const std::string& file)
        : database_(openStoreFile(file)),
          find_(database_, "SELECT json, crc32 FROM value WHERE name = ?1"),
          // REPLACE takes time with the size of the row's neighbours.
          replace_(database_,
                   "INSERT INTO value (name, json, crc32) VALUES (?1, ?2, ?3) "
                   "ON CONFLICT (name) DO UPDATE SET json = excluded.json, crc32 = excluded.crc32") {}

    std::optional<std::string> find(const std::string& name) {
        const CancellationHeld held;
        const std::lock_guard guard(databaseLock_);
        const StatementUse use(find_);
        find_.bind(1, name);
        if (!find_.step())
            return std::nullopt;
        std::string json(find_.text(0));
        if (checksum(name, json) != find_.number(1))
            throw DatabaseFailure("the file is damaged");
        return json;
    }

    void replace(const std::string& name, const std::string& json) {
        const auto sum = static_cast<std::int64_t>(checksum(name, json));
        const CancellationHeld held;
        const std::lock_guard guard(databaseLock_);
        const StatementUse use(replace_);
        replace_.bind(1, name);
        replace_.bind(2, json);
        replace_.bind(3, sum);
        replace_.step();
    }

private:
    // Guards all of the below.
    std::mutex databaseLock_;
    Database database_;
    Statement find_;
    Statement replace_;
};

SqlitePersistence::SqlitePersistence(const std::string& file) : connection_(std::make_unique<Connection>(file)) {}

SqlitePersistence::~SqlitePersistence() = default;

bool SqlitePersistence::Load(const std::string& name, COtxValue& value) {
    try {
        const std::optional<std::string> json = connection_->find(name);
        if (!json)
            return false;
        value = OTX::FromJSON(*json);
        return true;
    } catch (const DatabaseFailure& failure) {
        failToLoad(name, failure.what());
    } catch (const COtxValue& refused) {
        failToLoad(name, refused.what());
    }
}

void SqlitePersistence::Save(const std::string& name, const COtxValue& value) {
    try {
        connection_->replace(name, storedForm(value));
    } catch (const DatabaseFailure& failure) {
        failToSave(name, failure.what());
    } catch (const COtxValue& refused) {
        failToSave(name, refused.what());
    }
}

}  // namespace velkotx::host
