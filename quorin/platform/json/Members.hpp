#pragma once

#include "quorin/platform/json/Node.hpp"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quorin::json {

/// Bytes behind the nodes of an object of `count` members for the positions that `Node` speaks of.
constexpr std::size_t indexBytes(std::size_t count) {
    return count > Node::indexedFrom ? count * sizeof(std::uint32_t) : 0;
}

/// Settles the names and values of an object, which stand in turn at `items` with `indexBytes(count)` behind them:
/// takes out members that a later one of the same name replaces, writes the index, and yields how many members there
/// are.
std::uint32_t settleMembers(Node* items, std::uint32_t count);

/// The positions of an object's members in the byte order of their names.
std::vector<std::uint32_t> byteOrder(const Node& object);

}  // namespace quorin::json
