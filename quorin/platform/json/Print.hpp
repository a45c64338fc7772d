#pragma once

#include "quorin/platform/json/Value.hpp"

#include <string>

#pragma GCC visibility push(default)

namespace quorin::json {

/// How a value is laid out: on one line without blanks, or indented by two blanks a level.
enum class Layout { compact, indented };

/// The canonical JSON text of `value`, without a newline at its end: members in byte order of their names, whole
/// numbers below 2^53 without fraction or exponent, integers with all digits, other numbers in the shortest form that
/// reads back equal. Bytes of a text that are not UTF-8 become U+FFFD. Any thread.
std::string print(const Value& value, Layout layout = Layout::compact);

}  // namespace quorin::json

#pragma GCC visibility pop
