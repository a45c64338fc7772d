#pragma once

#include <string>

struct sqlite3;

namespace quorin::morr {

/// What came of one step on the database.
struct Outcome {
    enum class Kind {
        done,
        /// Not a database, or one whose structure is broken.
        damaged,
        /// A sound database with other content than a store's.
        foreign,
        /// Locked by others all the time.
        busy,
        /// Anything else: no permission, no space, an error of the disk.
        failed,
    };

    Kind kind = Kind::done;
    /// The database library's words and the system's; no stored value.
    std::string words{};

    /// That of the database library's result code for the connection; a null one has no system's words. Memory that is
    /// exhausted is a `std::bad_alloc`.
    static Outcome of(int code, sqlite3* connection);

    /// Whether the code says that memory is exhausted. SQLite says so too of a file that lies about the size of a row.
    static bool isOfMemory(int code);

    /// That of a database with the tables of somebody else.
    static Outcome foreign();

    /// True when the code says that others hold a lock, so that the step may work later.
    static bool isContention(int code);

    explicit operator bool() const { return kind == Kind::done; }
};

}  // namespace quorin::morr
