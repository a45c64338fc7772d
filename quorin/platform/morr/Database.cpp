#include "quorin/platform/morr/Database.hpp"

#include "quorin/platform/morr/Row.hpp"

#include <sqlite3.h>

#include <chrono>
#include <new>
#include <system_error>

namespace quorin::morr {
namespace {

using Clock = std::chrono::steady_clock;

/// How long a step waits for other processes.
constexpr std::chrono::milliseconds patience{10'000};
/// Between two tries of a step for which the library itself does not wait.
constexpr int pauseMilliseconds = 5;

constexpr char contentQuery[] =
    "SELECT (SELECT user_version FROM pragma_user_version), (SELECT count(*) FROM sqlite_schema),"
    " (SELECT group_concat(name || pk) FROM pragma_table_info('entries')), (SELECT encoding FROM pragma_encoding)";
/// The table's shape has the number 1 as `user_version`.
constexpr int shapeNumber = 1;
/// The names of the columns, each with its place in the primary key.
constexpr std::string_view shapeColumns = "key1,type0,value0";
constexpr char foreignWords[] = "it holds another database, or one of a newer version";
constexpr char tableStatements[] =
    "BEGIN IMMEDIATE;"
    "CREATE TABLE IF NOT EXISTS entries (key TEXT NOT NULL PRIMARY KEY, type TEXT NOT NULL, value) WITHOUT ROWID;"
    "PRAGMA user_version = 1;"
    "COMMIT";

bool isContention(int code) {
    const int primary = code & 0xff;
    return primary == SQLITE_BUSY || primary == SQLITE_LOCKED || primary == SQLITE_PROTOCOL;
}

Outcome::Kind kindOf(int code) {
    if (isContention(code)) return Outcome::Kind::busy;
    switch (code & 0xff) {
        case SQLITE_OK:
        case SQLITE_ROW:
        case SQLITE_DONE: return Outcome::Kind::done;
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB: return Outcome::Kind::damaged;
        // The statements are sound, so it is the tables that are not ours.
        case SQLITE_ERROR: return Outcome::Kind::foreign;
        default: return Outcome::Kind::failed;
    }
}

/// A URI of the database library for a file that nobody writes, so it can be read without a lock or a journal.
std::string unchangingURI(const std::string& path) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string uri = "file:";
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '/' || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) {
            uri += c;
        } else {
            uri += {'%', digits[byte >> 4], digits[byte & 15]};
        }
    }
    return uri + "?immutable=1";
}

/// Lets go of the row, and of what the parameters lent, however the use of a statement ends.
class Use {
public:
    explicit Use(sqlite3_stmt* statement) : statement_(statement) {}
    ~Use() {
        sqlite3_reset(statement_);
        sqlite3_clear_bindings(statement_);
    }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;

private:
    sqlite3_stmt* statement_;
};

}  // namespace

/// This close waits for the statements that are still there.
void Database::CloseConnection::operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }

void Database::CloseStatement::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

Outcome Database::open(const StoreFile& file) {
    constexpr int common = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_NOFOLLOW | SQLITE_OPEN_EXRESCODE;
    Outcome outcome = connect(file.path, SQLITE_OPEN_READWRITE | common);
    if (outcome.kind != Outcome::Kind::failed || file.hasJournal()) return outcome;
    // Where no journal can be made, as in a directory that is not writable, the file can still be read as it is.
    return connect(unchangingURI(file.path), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | common) ? Outcome{} : outcome;
}

Outcome Database::connect(const std::string& name, int flags) {
    *this = Database();
    sqlite3* connection = nullptr;
    const int code = sqlite3_open_v2(name.c_str(), &connection, flags, nullptr);
    connection_.reset(connection);
    if (code != SQLITE_OK) return outcomeOf(code);
    sqlite3_busy_timeout(connection, static_cast<int>(patience.count()));
    for (const int trusted : {SQLITE_DBCONFIG_TRUSTED_SCHEMA, SQLITE_DBCONFIG_ENABLE_TRIGGER}) {
        sqlite3_db_config(connection, trusted, 0, nullptr);
    }
    leaveAsItIs();
    Outcome outcome = checkContent();
    if (outcome && !isReadOnly()) outcome = prepareForWriting();
    if (outcome) outcome = prepare("SELECT type, value FROM entries WHERE key = ?1", select_);
    if (outcome) sqlite3_db_config(connection, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
    return outcome;
}

Outcome Database::checkContent() {
    Statement query;
    if (Outcome outcome = prepare(contentQuery, query); !outcome) return outcome;
    const int code = step(query.get());
    if (code != SQLITE_ROW) return outcomeOf(code);
    const int version = sqlite3_column_int(query.get(), 0);
    const bool isReadable = row::bytes(query.get(), 3) == "UTF-8";
    isEmpty_ = isReadable && version == 0 && sqlite3_column_int(query.get(), 1) == 0;
    const bool isOurs = isReadable && version == shapeNumber && row::bytes(query.get(), 2) == shapeColumns;
    if (isEmpty_ && isReadOnly()) return {Outcome::Kind::foreign, "it is empty and cannot be written"};
    if (!isEmpty_ && !isOurs) return {Outcome::Kind::foreign, foreignWords};

    if (Outcome outcome = prepare("PRAGMA quick_check(1)", query); !outcome) return outcome;
    const int checked = step(query.get());
    if (checked != SQLITE_ROW) return outcomeOf(checked);
    if (row::bytes(query.get(), 0) == "ok") return {};
    return {Outcome::Kind::damaged, "its structure is broken"};
}

Outcome Database::prepareForWriting() {
    Outcome outcome = execute("PRAGMA journal_mode = WAL");
    if (outcome) outcome = execute("PRAGMA synchronous = FULL");
    if (outcome && isEmpty_) outcome = execute(tableStatements);
    if (outcome) {
        outcome = prepare(
            "INSERT INTO entries (key, type, value) VALUES (?1, ?2, ?3)"
            " ON CONFLICT (key) DO UPDATE SET type = excluded.type, value = excluded.value",
            upsert_);
    }
    if (outcome) outcome = prepare("DELETE FROM entries WHERE key = ?1", delete_);
    return outcome;
}

bool Database::isReadOnly() const { return sqlite3_db_readonly(connection_.get(), "main") == 1; }

bool Database::isInPlace() const {
    int moved = 0;
    sqlite3_file_control(connection_.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    return !moved;
}

void Database::leaveAsItIs() { sqlite3_db_config(connection_.get(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr); }

Outcome Database::read(std::string_view key, std::optional<StoredValue>& value) {
    const Use use(select_.get());
    value.reset();
    int code = row::bindText(select_.get(), 1, key);
    if (code == SQLITE_OK) code = step(select_.get());
    if (code == SQLITE_ROW) value = row::value(select_.get(), 0);
    return outcomeOf(code);
}

Outcome Database::readAll(StoredValues& values) {
    values.clear();
    Statement query;
    if (Outcome outcome = prepare("SELECT type, value, key FROM entries ORDER BY key", query); !outcome) return outcome;
    int code = step(query.get());
    for (; code == SQLITE_ROW; code = sqlite3_step(query.get())) {
        auto value = row::value(query.get(), 0);
        if (value) values.emplace_hint(values.end(), row::bytes(query.get(), 2), std::move(*value));
    }
    return outcomeOf(code);
}

Outcome Database::write(std::string_view key, const StoredValue& value) {
    const Use use(upsert_.get());
    int code = row::bindText(upsert_.get(), 1, key);
    if (code == SQLITE_OK) code = row::bind(upsert_.get(), 2, value);
    if (code == SQLITE_OK) code = step(upsert_.get());
    return outcomeOf(code);
}

Outcome Database::erase(std::string_view key) {
    const Use use(delete_.get());
    int code = row::bindText(delete_.get(), 1, key);
    if (code == SQLITE_OK) code = step(delete_.get());
    return outcomeOf(code);
}

Outcome Database::prepare(const char* text, Statement& statement) {
    const auto start = Clock::now();
    for (;;) {
        sqlite3_stmt* prepared = nullptr;
        const int code = sqlite3_prepare_v2(connection_.get(), text, -1, &prepared, nullptr);
        statement.reset(prepared);
        if (!isContention(code) || Clock::now() - start >= patience) return outcomeOf(code);
        sqlite3_sleep(pauseMilliseconds);
    }
}

Outcome Database::execute(const char* text) {
    const auto start = Clock::now();
    for (;;) {
        const int code = sqlite3_exec(connection_.get(), text, nullptr, nullptr, nullptr);
        Outcome outcome = outcomeOf(code);
        if (!sqlite3_get_autocommit(connection_.get())) {
            sqlite3_exec(connection_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
        }
        if (!isContention(code) || Clock::now() - start >= patience) return outcome;
        sqlite3_sleep(pauseMilliseconds);
    }
}

/// Some locks are refused at once, without the library's own waiting: those around the opening and closing of a
/// journal.
int Database::step(sqlite3_stmt* statement) {
    const auto start = Clock::now();
    for (;;) {
        const int code = sqlite3_step(statement);
        if (!isContention(code) || Clock::now() - start >= patience) return code;
        sqlite3_reset(statement);
        sqlite3_sleep(pauseMilliseconds);
    }
}

Outcome Database::outcomeOf(int code) const {
    const Outcome::Kind kind = kindOf(code);
    if (kind == Outcome::Kind::done) return {};
    if (kind == Outcome::Kind::foreign) return {kind, foreignWords};
    if ((code & 0xff) == SQLITE_NOMEM) throw std::bad_alloc();
    std::string words = sqlite3_errstr(code);
    const int system = connection_ ? sqlite3_system_errno(connection_.get()) : 0;
    const int primary = code & 0xff;
    if (system != 0 && (primary == SQLITE_IOERR || primary == SQLITE_CANTOPEN)) {
        words += ": " + std::error_code(system, std::generic_category()).message();
    }
    return {kind, std::move(words)};
}

}  // namespace quorin::morr
