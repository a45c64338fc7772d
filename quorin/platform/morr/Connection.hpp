#pragma once

#include "quorin/platform/morr/Outcome.hpp"

#include <memory>
#include <string>

struct sqlite3;
struct sqlite3_stmt;

namespace quorin::morr {

/// Finalizes what was prepared.
struct CloseStatement {
    void operator()(sqlite3_stmt* statement) const;
};

/// What was prepared for a connection; empty where that failed. The connection may be closed before it.
using Statement = std::unique_ptr<sqlite3_stmt, CloseStatement>;

/// SQLite and one of its files. What other processes lock out is tried again for ten seconds. For one thread at a time.
class Connection {
public:
    /// In place of the file before. `flags` are those of `sqlite3_open_v2`. It trusts nothing that the file says, and
    /// carries no journal over when it is closed, until `carryOver`.
    Outcome open(const std::string& name, int flags);

    /// A file whose tables cannot be made out, although there is memory enough for that, is damaged.
    Outcome prepare(const char* text, Statement& statement) const;

    /// Prepares, and stands on the first row when it is done; for statements that always yield one.
    Outcome ask(const char* text, Statement& statement) const;

    /// For statements that yield no rows; a transaction that fails is taken back.
    Outcome execute(const char* text) const;

    /// From the first row on. Yields the code of SQLite.
    static int step(sqlite3_stmt* statement);

    /// What the code means that a call for this connection yielded.
    Outcome outcomeOf(int code) const;

    /// Takes back the transaction that is under way, if one is.
    void rollBack() const;

    /// Whether closing carries the journal over into the file.
    void carryOver(bool isWanted) const;

    bool isReadOnly() const;

    /// False once the file was deleted, renamed or replaced.
    bool isInPlace() const;

private:
    struct Close {
        void operator()(sqlite3* connection) const;
    };

    std::unique_ptr<sqlite3, Close> connection_;
};

}  // namespace quorin::morr
