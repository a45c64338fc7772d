#pragma once

#include <cstdint>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin::json {

/// The kinds of a JSON value. Whole numbers are `integer` within signed 64 bits and `unsignedInteger` up to 2^64 - 1;
/// every other number is `real`.
enum class Kind : std::uint8_t { null, boolean, integer, unsignedInteger, real, string, list, object };

/// The word by which reports name a kind: "null", "boolean", "number", "string", "list" or "object".
std::string_view nameOf(Kind kind);

/// One value inside an arena. A list's items stand one behind the other; an object's are name, value, name, value, in
/// document order. An object of more than `indexedFrom` members is followed by the positions of its members in the byte
/// order of their names, so that looking one up and comparing two objects stay fast however large they are.
struct Node {
    union {
        bool boolean;
        std::int64_t integer;
        std::uint64_t unsignedInteger;
        double real;
        const char* text;
        const Node* items;
    };
    std::uint32_t size = 0;  ///< bytes of a string, elements of a list, members of an object
    Kind kind = Kind::null;
    std::uint16_t height = 0;  ///< levels of lists and objects below and including this one

    constexpr Node() : integer(0) {}

    std::string_view string() const { return {text, size}; }
    const Node& name(std::uint32_t member) const { return items[std::size_t{2} * member]; }
    const Node& value(std::uint32_t member) const { return items[std::size_t{2} * member + 1]; }
    const std::uint32_t* index() const { return reinterpret_cast<const std::uint32_t*>(items + std::size_t{2} * size); }

    static constexpr std::uint32_t indexedFrom = 16;
};

static_assert(sizeof(Node) == 16);

/// The value of the member `name` of an object, or null.
const Node* find(const Node& object, std::string_view name);

/// Equality by mathematical value: 1 equals true and 1.0, a number never equals a string.
bool equal(const Node& left, const Node& right);

}  // namespace quorin::json

#pragma GCC visibility pop
