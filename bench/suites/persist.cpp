// Saves of a small value: by a sequence, through the store alone, and by the bare database doing the same transactions. All in
// real time, since they wait for the disk.
#include "Programs.h"

#include <persistence/SqlitePersistence.h>

#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace {

using velkotx::host::SqlitePersistence;

constexpr const char* variable = "i";

// A folder of its own for each pass, gone afterwards.
class Folder {
public:
    Folder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "bench-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder");
        folder_ = pattern;
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() { std::filesystem::remove_all(folder_); }

    std::string file() const { return (folder_ / "values.db").string(); }

private:
    std::filesystem::path folder_;
};

void require(bool done) {
    if (!done) throw std::runtime_error("the database refuses");
}

// Opening and closing count on all sides, with the checkpoint that closing makes.
void bareSaves(benchmark::State& state) {
    for (auto _ : state) {
        const Folder folder;
        sqlite3* database = nullptr;
        sqlite3_stmt* replace = nullptr;
        require(sqlite3_open(folder.file().c_str(), &database) == SQLITE_OK);
        const auto execute = [&](const char* sql) {
            require(sqlite3_exec(database, sql, nullptr, nullptr, nullptr) == SQLITE_OK);
        };
        execute("PRAGMA journal_mode = WAL");
        execute("PRAGMA synchronous = NORMAL");
        execute("CREATE TABLE value (name TEXT NOT NULL PRIMARY KEY, json TEXT NOT NULL) STRICT, WITHOUT ROWID");
        require(sqlite3_prepare_v2(database, "REPLACE INTO value VALUES (?1, ?2)", -1, &replace, nullptr) == SQLITE_OK);
        for (long long n = 1; n <= state.range(0); ++n) {
            const std::string json = std::to_string(n);
            sqlite3_bind_text(replace, 1, variable, -1, SQLITE_STATIC);
            sqlite3_bind_text(replace, 2, json.data(), static_cast<int>(json.size()), SQLITE_STATIC);
            require(sqlite3_step(replace) == SQLITE_DONE);
            sqlite3_reset(replace);
        }
        sqlite3_finalize(replace);
        sqlite3_close(database);
    }
}

void storeSaves(benchmark::State& state) {
    for (auto _ : state) {
        const Folder folder;
        SqlitePersistence store(folder.file());
        for (long long n = 1; n <= state.range(0); ++n) store.Save(variable, COtxInt(n));
    }
}

void sequenceSaves(benchmark::State& state) {
    std::ifstream document(PROGRAMS_FOLDER "/persist.otx");
    const auto sequencer = velkotx::CreateSequencer(document);
    const auto sink = std::make_shared<SilentSink>();
    sequencer->SetHost(sink);
    const COtxMap arguments(std::map<const std::string, COtxValue>{{"n", COtxInt(state.range(0))}});
    for (auto _ : state) {
        const Folder folder;
        sequencer->SetPersistence(std::make_shared<SqlitePersistence>(folder.file()));
        benchmark::DoNotOptimize(sequencer->Run("main", arguments, false));
        sequencer->SetPersistence(nullptr);
    }
}

}  // namespace

BENCHMARK(bareSaves)->Arg(10'000)->Arg(100'000)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(storeSaves)->Arg(10'000)->Arg(100'000)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(sequenceSaves)->Arg(10'000)->Arg(100'000)->Iterations(1)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
