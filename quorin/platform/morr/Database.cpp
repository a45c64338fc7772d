#include "quorin/platform/morr/Database.hpp"

#include "quorin/platform/morr/Row.hpp"
#include "quorin/platform/morr/UnchangingURI.hpp"

#include <sqlite3.h>

#include <chrono>

namespace quorin::morr {
namespace {

using Clock = std::chrono::steady_clock;

/// How long a step waits for other processes.
constexpr std::chrono::milliseconds patience{10'000};
/// Between two tries of a step for which the library itself does not wait.
constexpr int pauseMilliseconds = 5;

/// As the database keeps it. Another shape of the table would get another `user_version`.
constexpr std::string_view tableText =
    "CREATE TABLE entries (key TEXT NOT NULL PRIMARY KEY, type TEXT NOT NULL, value) WITHOUT ROWID";
constexpr int shapeNumber = 1;
constexpr char tableStatements[] =
    "BEGIN IMMEDIATE;"
    "CREATE TABLE IF NOT EXISTS entries (key TEXT NOT NULL PRIMARY KEY, type TEXT NOT NULL, value) WITHOUT ROWID;"
    "PRAGMA user_version = 1;"
    "COMMIT";

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

/// SQLite reads what is missing of the last page as zeros, which would be the end of a value. Only a journal has more
/// of such a page, of which a full disk took a part. While a connection is open, no journal with content goes away.
bool isCutShort(const StoreFile& file, int pageSize) {
    return pageSize > 0 && file.size() % static_cast<std::size_t>(pageSize) != 0 && !file.hasJournal();
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

/// Takes back what a transaction has done, also where memory ends in it.
class Transaction {
public:
    explicit Transaction(sqlite3* connection) : connection_(connection) {}
    ~Transaction() {
        if (!sqlite3_get_autocommit(connection_)) sqlite3_exec(connection_, "ROLLBACK", nullptr, nullptr, nullptr);
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

private:
    sqlite3* connection_;
};

}  // namespace

/// This close waits for the statements that are still there.
void Database::CloseConnection::operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }

void Database::CloseStatement::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

Outcome Database::open(const StoreFile& file) {
    // SQLite takes a file of one byte for an empty one, and deletes the log of an empty one, which may hold everything.
    // A file is begun before its log, so that is asked for first: another process may be making both.
    const bool hasLog = file.hasWriteAheadLog();
    const std::size_t size = file.size();
    if (size == 1) return {Outcome::Kind::damaged, "file is not a database"};
    if (size == 0 && hasLog) return {Outcome::Kind::damaged, "it is empty and its journal is not"};
    constexpr int common = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_NOFOLLOW | SQLITE_OPEN_EXRESCODE;
    Outcome outcome = connect(file, file.path, SQLITE_OPEN_READWRITE | common);
    if (outcome.kind != Outcome::Kind::failed || file.hasJournal()) return outcome;
    // Where no journal can be made, as in a directory that is not writable, the file can still be read as it is.
    return connect(file, unchangingURI(file.path), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | common) ? Outcome{}
                                                                                                    : outcome;
}

Outcome Database::connect(const StoreFile& file, const std::string& name, int flags) {
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
    Outcome outcome = execute("PRAGMA cell_size_check = ON");
    if (outcome) outcome = checkContent(file);
    if (outcome && isEmpty_) outcome = prepareForWriting();
    // An empty journal carries nothing over, and would only stay behind.
    if (outcome || !file.hasWriteAheadLog())
        sqlite3_db_config(connection, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 0, nullptr);
    return outcome;
}

/// All it learns is of one moment: statements that stand on a row are in one transaction.
Outcome Database::checkContent(const StoreFile& file) {
    Statement version, pageSize;
    Tables tables;
    Outcome outcome = ask("PRAGMA user_version", version);
    if (outcome) outcome = ask("PRAGMA page_size", pageSize);
    if (outcome) outcome = readTables(tables);
    if (!outcome) return outcome;
    const int number = sqlite3_column_int(version.get(), 0);
    const bool isCut = isCutShort(file, sqlite3_column_int(pageSize.get(), 0));

    if (tables.any ? !tables.ours || number != shapeNumber : number != 0) return Outcome::foreign();
    isEmpty_ = !tables.any;
    if (isEmpty_) outcome = checkEncoding();
    if (!outcome) return outcome;
    if (isEmpty_ && isReadOnly()) return {Outcome::Kind::foreign, "it is empty and cannot be written"};
    if (isCut) return {Outcome::Kind::damaged, "its end is missing"};
    return {};
}

/// The statement of a table is compared as bytes, so one in another encoding than UTF-8 is not ours.
Outcome Database::readTables(Tables& tables) {
    Statement query;
    Outcome outcome = prepare("SELECT sql FROM sqlite_schema", query);
    if (!outcome) return outcome;
    int code = step(query.get());
    for (; code == SQLITE_ROW; code = sqlite3_step(query.get())) {
        tables.any = true;
        tables.ours = tables.ours || row::bytes(query.get(), 0) == tableText;
    }
    return outcomeOf(code);
}

/// An empty file may be meant for texts of another encoding than ours.
Outcome Database::checkEncoding() {
    Statement encoding;
    Outcome outcome = ask("PRAGMA encoding", encoding);
    return outcome && row::bytes(encoding.get(), 0) != "UTF-8" ? Outcome::foreign() : outcome;
}

/// A change uses more than the table, so before the first one the whole file is looked at.
Outcome Database::checkStructure() {
    Statement check;
    Outcome outcome = ask("PRAGMA quick_check(1)", check);
    const bool isSound = outcome && row::bytes(check.get(), 0) == "ok";
    return !outcome || isSound ? outcome : Outcome{Outcome::Kind::damaged, "its structure is broken"};
}

/// Not before the first change: a start that only reads is spared it.
Outcome Database::prepareForWriting() {
    if (upsert_ && delete_) return {};
    Outcome outcome = isEmpty_ ? Outcome{} : checkStructure();
    if (outcome) outcome = execute("PRAGMA journal_mode = WAL");
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
    value.reset();
    if (!isWalked_) {
        StoredValues all;
        if (Outcome outcome = readAll(all); !outcome) return outcome;
    }
    if (!select_) {
        Outcome outcome = prepare("SELECT type, value FROM entries WHERE key = ?1", select_);
        if (!outcome) return outcome;
    }
    const Use use(select_.get());
    int code = row::bindText(select_.get(), 1, key);
    if (code == SQLITE_OK) code = step(select_.get());
    if (code == SQLITE_ROW) value = row::value(select_.get(), 0);
    return outcomeOf(code);
}

Outcome Database::readAll(StoredValues& values) {
    values.clear();
    Statement query;
    if (Outcome outcome = prepare("SELECT type, value, key FROM entries ORDER BY key", query); !outcome) return outcome;
    std::optional<std::string> last;
    int code = step(query.get());
    // Keys of other types than text, which are nobody's, stand behind the texts.
    for (; code == SQLITE_ROW && sqlite3_column_type(query.get(), 2) == SQLITE_TEXT; code = sqlite3_step(query.get())) {
        const std::string_view key = row::bytes(query.get(), 2);
        if (last && key <= *last) return {Outcome::Kind::damaged, "its keys are out of order"};
        last = key;
        if (auto value = row::value(query.get(), 0)) values.emplace_hint(values.end(), key, std::move(*value));
    }
    Outcome outcome = outcomeOf(code);
    isWalked_ = isWalked_ || outcome;
    return outcome;
}

Outcome Database::write(std::string_view key, const StoredValue& value) {
    if (Outcome outcome = prepareForWriting(); !outcome) return outcome;
    const Use use(upsert_.get());
    int code = row::bindText(upsert_.get(), 1, key);
    if (code == SQLITE_OK) code = row::bind(upsert_.get(), 2, value);
    if (code == SQLITE_OK) code = step(upsert_.get());
    return outcomeOf(code);
}

Outcome Database::erase(std::string_view key) {
    if (Outcome outcome = prepareForWriting(); !outcome) return outcome;
    const Use use(delete_.get());
    int code = row::bindText(delete_.get(), 1, key);
    if (code == SQLITE_OK) code = step(delete_.get());
    return outcomeOf(code);
}

Outcome Database::claim(std::string_view key, const StoredValue& value, std::optional<StoredValue>& there) {
    Outcome outcome = prepareForWriting();
    if (outcome) outcome = execute("BEGIN IMMEDIATE");
    if (!outcome) return outcome;
    const Transaction transaction(connection_.get());
    outcome = read(key, there);
    if (outcome && (!there || there->index() != value.index())) {
        outcome = write(key, value);
        there = copyOf(value);
    }
    return outcome ? execute("COMMIT") : outcome;
}

Outcome Database::prepare(const char* text, Statement& statement) {
    return outcomeOf(patiently([&] {
        sqlite3_stmt* prepared = nullptr;
        const int code = sqlite3_prepare_v2(connection_.get(), text, -1, &prepared, nullptr);
        statement.reset(prepared);
        return code;
    }));
}

/// Stands on the first row when it is done; for statements that always yield one.
Outcome Database::ask(const char* text, Statement& statement) {
    Outcome outcome = prepare(text, statement);
    return outcome ? outcomeOf(step(statement.get())) : outcome;
}

Outcome Database::execute(const char* text) {
    return outcomeOf(patiently([&] {
        sqlite3* const connection = connection_.get();
        const int code = sqlite3_exec(connection, text, nullptr, nullptr, nullptr);
        const bool isStuck = code != SQLITE_OK && !sqlite3_get_autocommit(connection);
        if (isStuck) sqlite3_exec(connection, "ROLLBACK", nullptr, nullptr, nullptr);
        return code;
    }));
}

int Database::step(sqlite3_stmt* statement) {
    return patiently([&] {
        sqlite3_reset(statement);
        return sqlite3_step(statement);
    });
}

Outcome Database::outcomeOf(int code) const { return Outcome::of(code, connection_.get()); }

}  // namespace quorin::morr
