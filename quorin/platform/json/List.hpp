#pragma once

#include "quorin/platform/json/Value.hpp"

#include <cstddef>
#include <initializer_list>
#include <span>
#include <utility>

#pragma GCC visibility push(default)

namespace quorin::json {

/// A JSON array. It is a `Value` known to be a list, so it is as cheap to copy and as constant; any
/// thread may read it.
class List {
public:
    List();
    List(std::initializer_list<Value> elements) : List(std::span<const Value>(elements)) {}
    explicit List(std::span<const Value> elements);

    std::size_t size() const { return value_.node().size; }
    bool empty() const { return size() == 0; }

    /// The element at `position`, below `size()`.
    Value operator[](std::size_t position) const { return value_.at(value_.node().items[position]); }

    friend bool operator==(const List& left, const List& right) { return left.value_ == right.value_; }

    /// The bare node, for walks that need no share in the tree.
    const Node& node() const { return value_.node(); }

    /// The same as an untyped value.
    const Value& value() const { return value_; }

private:
    friend class Value;
    explicit List(Value value) : value_(std::move(value)) {}

    Value value_;
};

}  // namespace quorin::json

#pragma GCC visibility pop
