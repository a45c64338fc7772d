#include "quorin/platform/json/Node.hpp"

#include <algorithm>
#include <cmath>
#include <optional>

namespace quorin::json {
namespace {

const Node* findByScan(const Node& object, std::string_view name) {
    for (std::uint32_t i = 0; i < object.size; ++i) {
        if (object.name(i).string() == name) return &object.value(i);
    }
    return nullptr;
}

const Node* findByIndex(const Node& object, std::string_view name) {
    const std::uint32_t* const end = object.index() + object.size;
    const auto before = [&](std::uint32_t member, std::string_view text) {
        return object.name(member).string() < text;
    };
    const std::uint32_t* const found = std::lower_bound(object.index(), end, name, before);
    return found != end && object.name(*found).string() == name ? &object.value(*found) : nullptr;
}

/// A whole number as sign and magnitude, so that signed and unsigned ones compare exactly.
struct Whole {
    bool negative;
    std::uint64_t magnitude;

    bool operator==(const Whole&) const = default;
};

std::optional<Whole> wholeOf(double real) {
    constexpr double limit = 18446744073709551616.0;  // 2^64
    const double magnitude = std::fabs(real);
    if (magnitude != std::trunc(magnitude) || !(magnitude < limit)) return std::nullopt;
    return Whole{real < 0, static_cast<std::uint64_t>(magnitude)};
}

std::optional<Whole> wholeOf(const Node& node) {
    switch (node.kind) {
        case Kind::boolean: return Whole{false, node.boolean};
        case Kind::integer: {
            const auto bits = static_cast<std::uint64_t>(node.integer);
            return Whole{node.integer < 0, node.integer < 0 ? 0 - bits : bits};
        }
        case Kind::unsignedInteger: return Whole{false, node.unsignedInteger};
        case Kind::real: return wholeOf(node.real);
        default: return std::nullopt;
    }
}

bool isNumber(const Node& node) { return node.kind >= Kind::boolean && node.kind <= Kind::real; }

bool equalNumbers(const Node& left, const Node& right) {
    if (left.kind == Kind::real && right.kind == Kind::real) return left.real == right.real;
    const auto whole = wholeOf(left);
    return whole && whole == wholeOf(right);
}

bool equalLists(const Node& left, const Node& right) {
    return std::equal(left.items, left.items + left.size, right.items, equal);
}

bool equalObjects(const Node& left, const Node& right) {
    for (std::uint32_t i = 0; i < left.size; ++i) {
        const std::string_view name = left.name(i).string();
        const Node* const other = right.name(i).string() == name ? &right.value(i) : find(right, name);
        if (!other || !equal(left.value(i), *other)) return false;
    }
    return true;
}

}  // namespace

std::string_view nameOf(Kind kind) {
    switch (kind) {
        case Kind::null: return "null";
        case Kind::boolean: return "boolean";
        case Kind::integer:
        case Kind::unsignedInteger:
        case Kind::real: return "number";
        case Kind::string: return "string";
        case Kind::list: return "list";
        case Kind::object: return "object";
    }
    return "unknown";
}

const Node* find(const Node& object, std::string_view name) {
    return object.size > Node::indexedFrom ? findByIndex(object, name) : findByScan(object, name);
}

bool equal(const Node& left, const Node& right) {
    if (isNumber(left) && isNumber(right)) return equalNumbers(left, right);
    if (left.kind != right.kind || left.size != right.size) return false;
    switch (left.kind) {
        case Kind::string: return left.string() == right.string();
        case Kind::list: return equalLists(left, right);
        case Kind::object: return equalObjects(left, right);
        default: return true;
    }
}

}  // namespace quorin::json
