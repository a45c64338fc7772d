#pragma once

#include "quorin/platform/json/Print.hpp"
#include "quorin/platform/json/Value.hpp"

#include <rapidcheck.h>

#include <bit>
#include <cstdint>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

/// Values of every kind for properties: `rc::gen::arbitrary<json::Value>()`, and JSON objects as `DocumentMap`.
namespace quorin::json {

inline void showValue(const Value& value, std::ostream& out) { out << print(value); }
inline void showValue(const DocumentMap& map, std::ostream& out) { out << print(map); }

using Members = std::vector<std::pair<std::string, Value>>;

inline Value objectOf(const Members& members) {
    return DocumentMap(std::vector<DocumentMap::Member>(members.begin(), members.end()));
}

/// UTF-8 of all lengths, with characters that need an escape or look like syntax.
inline rc::Gen<std::string> anyText() {
    const auto piece = rc::gen::element<std::string>("a", "b", "Z", " ", "0", "\"", "\\", "/", "~", "\n", "\t", "\x01",
                                                     "\x7F", std::string(1, '\0'), "[", "}", ",", "\xC3\xA9",
                                                     "\xE2\x82\xAC", "\xEF\xBB\xBF", "\xF0\x9F\x98\x80");
    return rc::gen::map(rc::gen::resize(8, rc::gen::container<std::vector<std::string>>(piece)),
                        [](const std::vector<std::string>& pieces) {
                            std::string text;
                            for (const std::string& one : pieces) text += one;
                            return text;
                        });
}

inline rc::Gen<Value> anyNumber() {
    return rc::gen::oneOf(
        rc::gen::map(rc::gen::inRange<std::int64_t>(-3, 4), [](std::int64_t number) { return Value(number); }),
        rc::gen::map(rc::gen::arbitrary<std::int64_t>(), [](std::int64_t number) { return Value(number); }),
        rc::gen::map(rc::gen::arbitrary<std::uint64_t>(), [](std::uint64_t number) { return Value(~number); }),
        rc::gen::map(rc::gen::arbitrary<double>(), [](double number) { return Value(number); }),
        rc::gen::map(rc::gen::noShrink(rc::gen::resize(1000, rc::gen::arbitrary<std::uint64_t>())),
                     [](std::uint64_t bits) { return Value(std::bit_cast<double>(bits)); }),
        rc::gen::element<Value>(0.5, -30.9, 1e30, -0.0, 9007199254740992.0, 9007199254740993, 18446744073709551616.0));
}

inline rc::Gen<Value> anyScalar() {
    return rc::gen::oneOf(rc::gen::just(Value()), rc::gen::element<Value>(true, false), anyNumber(), anyNumber(),
                          rc::gen::map(anyText(), [](const std::string& text) { return Value(text); }));
}

/// A value of at most `levels` levels whose members bear names that `names` generates.
inline rc::Gen<Value> anyValue(const rc::Gen<std::string>& names, int levels) {
    if (levels == 0) return anyScalar();
    const auto inner = rc::gen::lazy([names, levels] { return anyValue(names, levels - 1); });
    return rc::gen::oneOf(
        anyScalar(),
        rc::gen::map(rc::gen::scale(0.1, rc::gen::container<std::vector<Value>>(inner)),
                     [](const std::vector<Value>& items) { return Value(List(items)); }),
        rc::gen::map(rc::gen::scale(0.25, rc::gen::container<Members>(rc::gen::pair(names, inner))), objectOf));
}

}  // namespace quorin::json

template <>
struct rc::Arbitrary<quorin::json::Value> {
    static Gen<quorin::json::Value> arbitrary() { return quorin::json::anyValue(quorin::json::anyText(), 4); }
};
