#include "quorin/platform/morr/Database.hpp"

#include "quorin/platform/morr/Row.hpp"
#include "quorin/platform/morr/UnchangingURI.hpp"

#include <sqlite3.h>

namespace quorin::morr {
namespace {

/// As the database keeps it. Another shape of the table would get another `user_version`.
constexpr std::string_view tableText =
    "CREATE TABLE entries (key TEXT NOT NULL PRIMARY KEY, type TEXT NOT NULL, value) WITHOUT ROWID";
constexpr int shapeNumber = 1;
constexpr char tableStatements[] =
    "BEGIN IMMEDIATE;"
    "CREATE TABLE IF NOT EXISTS entries (key TEXT NOT NULL PRIMARY KEY, type TEXT NOT NULL, value) WITHOUT ROWID;"
    "PRAGMA user_version = 1;"
    "COMMIT";

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
    explicit Transaction(const Connection& connection) : connection_(connection) {}
    ~Transaction() { connection_.rollBack(); }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

private:
    const Connection& connection_;
};

}  // namespace

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
    Outcome outcome = connection_.open(name, flags);
    if (!outcome) return outcome;
    outcome = connection_.execute("PRAGMA cell_size_check = ON");
    if (outcome) outcome = checkContent(file);
    if (outcome && isEmpty_) outcome = prepareForWriting();
    // An empty journal carries nothing over, and would only stay behind.
    if (outcome || !file.hasWriteAheadLog()) connection_.carryOver(true);
    return outcome;
}

/// All it learns is of one moment: statements that stand on a row are in one transaction.
Outcome Database::checkContent(const StoreFile& file) {
    Statement version, pageSize;
    Tables tables;
    Outcome outcome = connection_.ask("PRAGMA user_version", version);
    if (outcome) outcome = connection_.ask("PRAGMA page_size", pageSize);
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
    Outcome outcome = connection_.prepare("SELECT sql FROM sqlite_schema", query);
    if (!outcome) return outcome;
    int code = Connection::step(query.get());
    for (; code == SQLITE_ROW; code = sqlite3_step(query.get())) {
        tables.any = true;
        tables.ours = tables.ours || row::bytes(query.get(), 0) == tableText;
    }
    return outcomeOfReading(code);
}

/// An empty file may be meant for texts of another encoding than ours.
Outcome Database::checkEncoding() {
    Statement encoding;
    Outcome outcome = connection_.ask("PRAGMA encoding", encoding);
    return outcome && row::bytes(encoding.get(), 0) != "UTF-8" ? Outcome::foreign() : outcome;
}

/// Memory that a row asked for which lies about its size was never missing.
Outcome Database::outcomeOfReading(int code) {
    if (Outcome::isOfMemory(code)) {
        if (Outcome structure = checkStructure(); !structure) return structure;
    }
    return connection_.outcomeOf(code);
}

/// A change uses more than the table, so before the first one the whole file is looked at.
Outcome Database::checkStructure() {
    Statement check;
    Outcome outcome = connection_.ask("PRAGMA quick_check(1)", check);
    const bool isSound = outcome && row::bytes(check.get(), 0) == "ok";
    return !outcome || isSound ? outcome : Outcome{Outcome::Kind::damaged, "its structure is broken"};
}

/// Not before the first change: a start that only reads is spared it.
Outcome Database::prepareForWriting() {
    if (upsert_ && delete_) return {};
    Outcome outcome = isEmpty_ ? Outcome{} : checkStructure();
    if (outcome) outcome = connection_.execute("PRAGMA journal_mode = WAL");
    if (outcome) outcome = connection_.execute("PRAGMA synchronous = FULL");
    if (outcome && isEmpty_) outcome = connection_.execute(tableStatements);
    if (outcome) {
        outcome = connection_.prepare(
            "INSERT INTO entries (key, type, value) VALUES (?1, ?2, ?3)"
            " ON CONFLICT (key) DO UPDATE SET type = excluded.type, value = excluded.value",
            upsert_);
    }
    if (outcome) outcome = connection_.prepare("DELETE FROM entries WHERE key = ?1", delete_);
    return outcome;
}

Outcome Database::read(std::string_view key, std::optional<StoredValue>& value) {
    value.reset();
    if (!isWalked_) {
        StoredValues all;
        if (Outcome outcome = readAll(all); !outcome) return outcome;
    }
    if (!select_) {
        Outcome outcome = connection_.prepare("SELECT type, value FROM entries WHERE key = ?1", select_);
        if (!outcome) return outcome;
    }
    const Use use(select_.get());
    int code = row::bindText(select_.get(), 1, key);
    if (code == SQLITE_OK) code = Connection::step(select_.get());
    if (code == SQLITE_ROW) value = row::value(select_.get(), 0);
    return outcomeOfReading(code);
}

Outcome Database::readAll(StoredValues& values) {
    values.clear();
    Statement query;
    if (Outcome outcome = connection_.prepare("SELECT type, value, key FROM entries ORDER BY key", query); !outcome)
        return outcome;
    std::optional<std::string> last;
    bool isBehind = false;  // of the texts, where keys of bytes stand, which are nobody's; no others can be put there
    int code = Connection::step(query.get());
    for (; code == SQLITE_ROW; code = sqlite3_step(query.get())) {
        const int type = sqlite3_column_type(query.get(), 2);
        const std::string_view key = row::bytes(query.get(), 2);
        if (type == SQLITE_BLOB) {
            isBehind = true;
            continue;
        }
        if (type != SQLITE_TEXT || isBehind || (last && key <= *last))
            return {Outcome::Kind::damaged, "its keys are out of order"};
        last = key;
        if (auto value = row::value(query.get(), 0)) values.emplace_hint(values.end(), key, std::move(*value));
    }
    Outcome outcome = outcomeOfReading(code);
    isWalked_ = isWalked_ || outcome;
    return outcome;
}

Outcome Database::write(std::string_view key, const StoredValue& value) {
    if (Outcome outcome = prepareForWriting(); !outcome) return outcome;
    const Use use(upsert_.get());
    int code = row::bindText(upsert_.get(), 1, key);
    if (code == SQLITE_OK) code = row::bind(upsert_.get(), 2, value);
    if (code == SQLITE_OK) code = Connection::step(upsert_.get());
    return connection_.outcomeOf(code);
}

Outcome Database::erase(std::string_view key) {
    if (Outcome outcome = prepareForWriting(); !outcome) return outcome;
    const Use use(delete_.get());
    int code = row::bindText(delete_.get(), 1, key);
    if (code == SQLITE_OK) code = Connection::step(delete_.get());
    return connection_.outcomeOf(code);
}

Outcome Database::claim(std::string_view key, const StoredValue& value, std::optional<StoredValue>& there) {
    Outcome outcome = prepareForWriting();
    if (outcome) outcome = connection_.execute("BEGIN IMMEDIATE");
    if (!outcome) return outcome;
    const Transaction transaction(connection_);
    outcome = read(key, there);
    if (outcome && (!there || there->index() != value.index())) {
        outcome = write(key, value);
        there = copyOf(value);
    }
    return outcome ? connection_.execute("COMMIT") : outcome;
}

}  // namespace quorin::morr
