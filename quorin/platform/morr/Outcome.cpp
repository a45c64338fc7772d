#include "quorin/platform/morr/Outcome.hpp"

#include <sqlite3.h>

#include <new>
#include <system_error>
#include <utility>

namespace quorin::morr {
namespace {

Outcome::Kind kindOf(int code) {
    if (Outcome::isContention(code)) return Outcome::Kind::busy;
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

}  // namespace

Outcome Outcome::of(int code, sqlite3* connection) {
    const Kind kind = kindOf(code);
    if (kind == Kind::done) return {};
    if (kind == Kind::foreign) return foreign();
    if (isOfMemory(code)) throw std::bad_alloc();
    const int primary = code & 0xff;
    std::string words = sqlite3_errstr(code);
    const int system = connection ? sqlite3_system_errno(connection) : 0;
    if (system != 0 && (primary == SQLITE_IOERR || primary == SQLITE_CANTOPEN)) {
        words += ": " + std::error_code(system, std::generic_category()).message();
    }
    return {kind, std::move(words)};
}

Outcome Outcome::foreign() { return {Kind::foreign, "it holds another database, or one of a newer version"}; }

bool Outcome::isOfMemory(int code) { return (code & 0xff) == SQLITE_NOMEM; }

bool Outcome::isContention(int code) {
    const int primary = code & 0xff;
    return primary == SQLITE_BUSY || primary == SQLITE_LOCKED || primary == SQLITE_PROTOCOL;
}

}  // namespace quorin::morr
