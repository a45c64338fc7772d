#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#pragma GCC visibility push(default)

namespace quorin::json {

/// A place in a text as editors show it: both count from 1, columns count characters.
struct Position {
    std::size_t line = 1;
    std::size_t column = 1;

    bool operator==(const Position&) const = default;
};

/// The place `offset` bytes into `text`. A byte order mark takes no column.
Position positionOf(std::string_view text, std::size_t offset);

/// Where the values at `pointers` (JSON Pointers, RFC 6901) begin in `text`, which parses; empty for one that does not
/// exist. One pass over the text, however many pointers there are.
std::vector<std::optional<Position>> positionsOf(std::string_view text, const std::vector<std::string>& pointers);

}  // namespace quorin::json

#pragma GCC visibility pop
