#pragma once

#include "quorin/platform/json/Arena.hpp"
#include "quorin/platform/json/Node.hpp"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quorin::json {
class Builder;
}

#pragma GCC visibility push(default)

namespace quorin::json {

class DocumentMap;
class List;

/// A whole number: signed, 64 bits on every platform.
using Integer = std::int64_t;

/// One untyped JSON value that never changes. A copy shares the tree it stands in and costs one count; any thread may
/// read it. Equality is by mathematical value (1 equals true and 1.0), texts and names compare by bytes.
class Value {
public:
    Value() = default;
    Value(std::nullptr_t) {}
    Value(bool value);
    Value(double value);  ///< one that is not finite becomes null
    template <std::integral Whole>
        requires(!std::same_as<Whole, bool>)
    Value(Whole value)
        : Value(std::unsigned_integral<Whole> ? ofUnsigned(static_cast<std::uint64_t>(value))
                                              : ofSigned(static_cast<Integer>(value))) {}
    Value(std::string_view text);
    Value(const char* text) : Value(std::string_view(text)) {}
    Value(const std::string& text) : Value(std::string_view(text)) {}
    Value(DocumentMap map);
    Value(List list);
    /// The value at `node`, which stands in `arena`.
    Value(const Node& node, ArenaPointer arena) : node_(node), arena_(std::move(arena)) {}

    Kind kind() const { return node_.kind; }

    /// What the value holds, or empty when it is of another kind; nothing is converted. A text lives as long as any
    /// value of its tree.
    std::optional<bool> asBoolean() const;
    std::optional<Integer> asInteger() const;
    std::optional<std::uint64_t> asUnsigned() const;  ///< whole numbers beyond the signed ones only
    std::optional<double> asReal() const;             ///< all other numbers
    std::optional<std::string_view> asString() const;
    std::optional<List> asList() const;
    std::optional<DocumentMap> asObject() const;

    friend bool operator==(const Value& left, const Value& right) { return equal(left.node_, right.node_); }

    /// The bare node, for walks that need no share in the tree.
    const Node& node() const { return node_; }

    /// The value at `node`, which stands in this value's tree.
    Value at(const Node& node) const { return Value(node, arena_); }

private:
    friend class Builder;
    friend class DocumentMap;
    friend class List;

    static Value ofSigned(Integer value);
    static Value ofUnsigned(std::uint64_t value);

    Node node_;
    ArenaPointer arena_;
};

}  // namespace quorin::json

#pragma GCC visibility pop

#include "quorin/platform/json/DocumentMap.hpp"
#include "quorin/platform/json/List.hpp"
