#pragma once

#include <sqlite3.h>

#include <string>

namespace quorin::morr {

/// Runs statements on a file as any other program would; the first column of the last row, or the error's words.
inline std::string runSQL(const std::string& path, const std::string& statements) {
    sqlite3* database = nullptr;
    std::string result;
    sqlite3_open(path.c_str(), &database);
    sqlite3_busy_timeout(database, 10000);
    const auto keep = [](void* into, int, char** columns, char**) {
        *static_cast<std::string*>(into) = columns[0] ? columns[0] : "NULL";
        return 0;
    };
    if (sqlite3_exec(database, statements.c_str(), keep, &result, nullptr) != SQLITE_OK)
        result = sqlite3_errmsg(database);
    sqlite3_close(database);
    return result;
}

}  // namespace quorin::morr
