#pragma once

#include "quorin/platform/json/Value.hpp"

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin::json {

/// A string-keyed map of untyped values: a JSON object, in document order. It is a `Value` known to be an object, so it
/// is as cheap to copy and as constant; any thread may read it.
class DocumentMap {
public:
    using Member = std::pair<std::string_view, Value>;

    DocumentMap();
    /// Of two members of one name the last counts.
    DocumentMap(std::initializer_list<Member> members) : DocumentMap(std::span<const Member>(members)) {}
    /// The same, of members that were collected.
    explicit DocumentMap(std::span<const Member> members);

    std::size_t size() const { return value_.node().size; }
    bool empty() const { return size() == 0; }
    bool contains(std::string_view name) const { return json::find(value_.node(), name) != nullptr; }

    /// The member's value, or empty when there is no such member.
    std::optional<Value> find(std::string_view name) const;

    /// The same members but for `name`, which is `value`. No value is copied deeply.
    DocumentMap with(std::string_view name, const Value& value) const;

    /// The member at `position` in document order, below `size()`. The name lives as long as the map's tree.
    Member at(std::size_t position) const;

    class Iterator;
    Iterator begin() const;
    Iterator end() const;

    friend bool operator==(const DocumentMap& left, const DocumentMap& right) { return left.value_ == right.value_; }

    /// The bare node, for walks that need no share in the tree.
    const Node& node() const { return value_.node(); }

    /// The same as an untyped value.
    const Value& value() const { return value_; }

private:
    friend class Value;
    explicit DocumentMap(Value value) : value_(std::move(value)) {}

    Value value_;
};

/// Yields each member in document order. The map has to outlive it.
class DocumentMap::Iterator {
public:
    Iterator(const DocumentMap& map, std::size_t position) : map_(&map), position_(position) {}
    Member operator*() const { return map_->at(position_); }
    Iterator& operator++() {
        ++position_;
        return *this;
    }
    bool operator==(const Iterator&) const = default;

private:
    const DocumentMap* map_;
    std::size_t position_;
};

inline DocumentMap::Iterator DocumentMap::begin() const { return {*this, 0}; }
inline DocumentMap::Iterator DocumentMap::end() const { return {*this, size()}; }

}  // namespace quorin::json

#pragma GCC visibility pop
