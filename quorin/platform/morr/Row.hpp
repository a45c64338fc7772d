#pragma once

#include "quorin/platform/morr/StoredValue.hpp"

#include <optional>
#include <string_view>

struct sqlite3_stmt;

/// A value in the columns `type` and `value` of a row, and in the parameters of a statement.
namespace quorin::morr::row {

/// Fills the parameter with the bytes as a text; the library's result code. The bytes must outlive the step.
int bindText(sqlite3_stmt* statement, int parameter, std::string_view text);

/// Fills the parameter with the type and the one behind it with the value.
int bind(sqlite3_stmt* statement, int parameter, const StoredValue& value);

/// The bytes of a column as they are stored; valid until the next step.
std::string_view bytes(sqlite3_stmt* statement, int column);

/// The value whose type stands in the column and whose content in the one behind it. Absent when they do not match.
std::optional<StoredValue> value(sqlite3_stmt* statement, int column);

}  // namespace quorin::morr::row
