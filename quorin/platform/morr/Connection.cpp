#include "quorin/platform/morr/Connection.hpp"

#include <sqlite3.h>

#include <chrono>

namespace quorin::morr {
namespace {

using Clock = std::chrono::steady_clock;

/// How long a step waits for other processes.
constexpr std::chrono::milliseconds patience{10'000};
/// Between two tries of a step for which the library itself does not wait.
constexpr int pauseMilliseconds = 5;

/// Tries again what others lock out. Some locks are refused at once, without the database library's own waiting: those
/// around the opening and closing of a journal.
template <class Try>
int patiently(Try attempt) {
    const auto start = Clock::now();
    for (;;) {
        const int code = attempt();
        if (!Outcome::isContention(code) || Clock::now() - start >= patience) return code;
        sqlite3_sleep(pauseMilliseconds);
    }
}

/// Whether there is more than the description of any table takes.
bool hasMemory() {
    constexpr sqlite3_uint64 plenty = 16U << 20U;
    void* const memory = sqlite3_malloc64(plenty);
    sqlite3_free(memory);
    return memory != nullptr;
}

}  // namespace

void CloseStatement::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

/// This close waits for the statements that are still there.
void Connection::Close::operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }

Outcome Connection::open(const std::string& name, int flags) {
    sqlite3* connection = nullptr;
    const int code = sqlite3_open_v2(name.c_str(), &connection, flags, nullptr);
    connection_.reset(connection);
    if (code != SQLITE_OK) return outcomeOf(code);
    sqlite3_busy_timeout(connection, static_cast<int>(patience.count()));
    for (const int trusted : {SQLITE_DBCONFIG_TRUSTED_SCHEMA, SQLITE_DBCONFIG_ENABLE_TRIGGER}) {
        sqlite3_db_config(connection, trusted, 0, nullptr);
    }
    carryOver(false);
    return {};
}

Outcome Connection::prepare(const char* text, Statement& statement) const {
    const auto attempt = [&] {
        sqlite3_stmt* prepared = nullptr;
        const int code = sqlite3_prepare_v2(connection_.get(), text, -1, &prepared, nullptr);
        statement.reset(prepared);
        return code;
    };
    int code = patiently(attempt);
    if (Outcome::isOfMemory(code)) code = patiently(attempt);
    if (Outcome::isOfMemory(code) && hasMemory())
        return {Outcome::Kind::damaged, "its description of itself is broken"};
    return outcomeOf(code);
}

Outcome Connection::ask(const char* text, Statement& statement) const {
    Outcome outcome = prepare(text, statement);
    return outcome ? outcomeOf(step(statement.get())) : outcome;
}

Outcome Connection::execute(const char* text) const {
    return outcomeOf(patiently([&] {
        const int code = sqlite3_exec(connection_.get(), text, nullptr, nullptr, nullptr);
        if (code != SQLITE_OK) rollBack();
        return code;
    }));
}

int Connection::step(sqlite3_stmt* statement) {
    return patiently([&] {
        sqlite3_reset(statement);
        return sqlite3_step(statement);
    });
}

Outcome Connection::outcomeOf(int code) const { return Outcome::of(code, connection_.get()); }

void Connection::rollBack() const {
    sqlite3* const connection = connection_.get();
    if (!sqlite3_get_autocommit(connection)) sqlite3_exec(connection, "ROLLBACK", nullptr, nullptr, nullptr);
}

void Connection::carryOver(bool isWanted) const {
    sqlite3_db_config(connection_.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, isWanted ? 0 : 1, nullptr);
}

bool Connection::isReadOnly() const { return sqlite3_db_readonly(connection_.get(), "main") == 1; }

bool Connection::isInPlace() const {
    int moved = 0;
    sqlite3_file_control(connection_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    return !moved;
}

}  // namespace quorin::morr
