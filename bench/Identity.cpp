// The identity values, against the bare database below them.
#include "bench/Ours.hpp"
#include "bench/Rows.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <sqlite3.h>

#include <cstdlib>
#include <memory>

namespace quorin::bench {
namespace {

constexpr const char* shape =
    "PRAGMA journal_mode = WAL; PRAGMA synchronous = FULL;"
    "CREATE TABLE IF NOT EXISTS entries (key TEXT NOT NULL PRIMARY KEY, type TEXT NOT NULL, value) WITHOUT ROWID";

sqlite3* opened(const std::string& path, const char* statements) {
    sqlite3* database = nullptr;
    if (sqlite3_open(path.c_str(), &database) != SQLITE_OK) std::abort();
    if (sqlite3_exec(database, statements, nullptr, nullptr, nullptr) != SQLITE_OK) std::abort();
    return database;
}

/// A put by a statement that is prepared once.
class BarePut {
public:
    explicit BarePut(const std::string& path) : database_(opened(path, shape)) {
        sqlite3_prepare_v2(database_, "INSERT OR REPLACE INTO entries VALUES ('com.vexodigitalMedia.kova', 'text', ?)",
                           -1, &statement_, nullptr);
    }
    int operator()(const std::string& value) {
        sqlite3_bind_text(statement_, 1, value.data(), static_cast<int>(value.size()), SQLITE_STATIC);
        const int done = sqlite3_step(statement_);
        sqlite3_reset(statement_);
        return done;
    }

private:
    sqlite3* database_;
    sqlite3_stmt* statement_ = nullptr;
};

int readAll(const std::string& path) {
    sqlite3* const database = opened(path, "PRAGMA synchronous = FULL");
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database, "SELECT key, type, value FROM entries", -1, &statement, nullptr);
    int rows = 0;
    while (sqlite3_step(statement) == SQLITE_ROW) ++rows;
    sqlite3_finalize(statement);
    sqlite3_close(database);
    return rows;
}

/// A different text at each call, so that each is written.
std::string next() {
    static long count = 0;
    return "account-" + std::to_string(++count);
}

}  // namespace

Rows identityRows() {
    static const support::TemporaryFolder folder;
    const std::string ours = folder.file("ours.db");
    const std::string theirs = folder.file("theirs.db");
    static auto& manager = *new ConfigurationManager::Instance(platformOn(ours));
    manager.setProfileJWT("token");

    add("assign", [] {
        manager.setKova(next());
        return 0;
    });
    add("put", [put = std::make_shared<BarePut>(theirs)] { return (*put)(next()); });
    add("restore", [ours] { return ConfigurationManager::Instance(platformOn(ours)).parentProfileID(); });
    add("select", [ours] { return readAll(ours); });
    return {
        {"assignment of a persisted value / a bare put", "assign", "put", 1.5, 1.1},
        {"start-up restore / open and one SELECT", "restore", "select", 1.6, 1.15},
    };
}

}  // namespace quorin::bench
