#include "quorin/platform/morr/Row.hpp"

#include <sqlite3.h>

#include <array>
#include <limits>

namespace quorin::morr::row {
namespace {

/// In the order of the alternatives of `StoredValue`.
constexpr std::array<std::string_view, 4> typeNames{"integer", "real", "text", "bytes"};

int bindValue(sqlite3_stmt* statement, int parameter, std::int64_t value) {
    return sqlite3_bind_int64(statement, parameter, value);
}

/// A number that is no number becomes NULL there, and is read back as what it is.
int bindValue(sqlite3_stmt* statement, int parameter, double value) {
    return sqlite3_bind_double(statement, parameter, value);
}

int bindValue(sqlite3_stmt* statement, int parameter, const std::string& value) {
    return bindText(statement, parameter, value);
}

int bindValue(sqlite3_stmt* statement, int parameter, const std::vector<std::byte>& value) {
    if (value.empty()) return sqlite3_bind_zeroblob(statement, parameter, 0);
    return sqlite3_bind_blob64(statement, parameter, value.data(), value.size(), SQLITE_STATIC);
}

std::optional<StoredValue> realIn(sqlite3_stmt* statement, int column, int type) {
    if (type == SQLITE_NULL) return std::numeric_limits<double>::quiet_NaN();
    if (type == SQLITE_FLOAT) return sqlite3_column_double(statement, column);
    return std::nullopt;
}

}  // namespace

int bindText(sqlite3_stmt* statement, int parameter, std::string_view text) {
    const char* const data = text.data() ? text.data() : "";
    return sqlite3_bind_text64(statement, parameter, data, text.size(), SQLITE_STATIC, SQLITE_UTF8);
}

int bind(sqlite3_stmt* statement, int parameter, const StoredValue& value) {
    const int code = bindText(statement, parameter, typeNames[value.index()]);
    if (code != SQLITE_OK) return code;
    return std::visit([&](const auto& held) { return bindValue(statement, parameter + 1, held); }, value);
}

std::string_view bytes(sqlite3_stmt* statement, int column) {
    const auto* data = static_cast<const char*>(sqlite3_column_blob(statement, column));
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
    return data ? std::string_view(data, size) : std::string_view();
}

std::optional<StoredValue> value(sqlite3_stmt* statement, int column) {
    const int content = column + 1;
    const int type = sqlite3_column_type(statement, content);
    const std::string_view name = bytes(statement, column);
    if (name == typeNames[0] && type == SQLITE_INTEGER) return std::int64_t{sqlite3_column_int64(statement, content)};
    if (name == typeNames[1]) return realIn(statement, content, type);
    if (name == typeNames[2] && type == SQLITE_TEXT) return std::string(bytes(statement, content));
    if (name == typeNames[3] && type == SQLITE_BLOB) {
        const std::string_view held = bytes(statement, content);
        const auto* first = reinterpret_cast<const std::byte*>(held.data());
        return std::vector<std::byte>(first, first + held.size());
    }
    return std::nullopt;
}

}  // namespace quorin::morr::row
