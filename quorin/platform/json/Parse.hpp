#pragma once

#include "quorin/platform/json/Position.hpp"
#include "quorin/platform/json/Value.hpp"

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>

#pragma GCC visibility push(default)

namespace quorin::json {

/// Where and why a text is no JSON.
struct ParseError {
    std::size_t offset = 0;  ///< bytes before the place
    Position position{};
    std::string message{};  ///< what is wrong there, in words
};

/// The value of a text, or why it has none.
class ParseResult {
public:
    ParseResult(Value value) : outcome_(std::move(value)) {}
    ParseResult(ParseError error) : outcome_(std::move(error)) {}

    explicit operator bool() const { return value() != nullptr; }

    /// Null when the text has none.
    const Value* value() const { return std::get_if<Value>(&outcome_); }

    /// Null when the text has a value.
    const ParseError* error() const { return std::get_if<ParseError>(&outcome_); }

private:
    std::variant<Value, ParseError> outcome_;
};

/// Lists and objects may stand this deep inside each other.
inline constexpr std::size_t deepestNesting = 512;

/// Bytes behind a text that spare its copy when they may be read.
inline constexpr std::size_t parsePadding = 64;

/// Reads one JSON text (RFC 8259) in UTF-8 as a whole; a scalar may stand at its top and a byte order mark before it.
/// Of two members of one name the last counts. Whole numbers beyond 64 bits become doubles, 1e400 is an error, 1e-400
/// is zero. Errors are also a NUL byte, invalid UTF-8, a lone surrogate, nesting beyond `deepestNesting`, and anything
/// behind the value. `spare` bytes behind `text` may be read as well: with `parsePadding` of them no copy is made. Any
/// thread; each that parses keeps a parser until it ends.
ParseResult parse(std::string_view text, std::size_t spare = 0);

}  // namespace quorin::json

#pragma GCC visibility pop
