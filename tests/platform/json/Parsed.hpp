#pragma once

#include "quorin/platform/json/Parse.hpp"
#include "quorin/platform/json/Print.hpp"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>

namespace quorin::json {

inline void PrintTo(const Value& value, std::ostream* out) { *out << print(value); }
inline void PrintTo(const List& list, std::ostream* out) { *out << print(list); }
inline void PrintTo(const DocumentMap& map, std::ostream* out) { *out << print(map); }
inline void PrintTo(const Position& position, std::ostream* out) { *out << position.line << ':' << position.column; }

/// The value of a text that must parse.
inline Value parsed(std::string_view text) {
    const ParseResult result = parse(text);
    EXPECT_TRUE(result) << text << ": " << (result ? "" : result.error()->message);
    return result ? *result.value() : Value();
}

/// The same from the parser that takes over where the fast one gives up, as it does at a whole number beyond 64 bits.
inline Value parsedOnSecondPath(std::string_view text) {
    const Value list = parsed('[' + std::string(text) + ", 18446744073709551616]");
    return list.asList() && list.asList()->size() == 2 ? (*list.asList())[0] : Value();
}

/// The error of a text that must not parse.
inline ParseError failureOf(std::string_view text) {
    const ParseResult result = parse(text);
    EXPECT_FALSE(result) << text;
    return result ? ParseError{} : *result.error();
}

inline bool fails(std::string_view text) { return !parse(text); }

/// Both parsers read `text` as the value whose canonical text is `canonical`.
inline void expectReads(std::string_view text, std::string_view canonical) {
    EXPECT_EQ(print(parsed(text)), canonical) << text;
    EXPECT_EQ(print(parsedOnSecondPath(text)), canonical) << text;
}

}  // namespace quorin::json
