#pragma once

#include "quorin/platform/json/Value.hpp"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorin::json {

/// A value, or the offset at which the text breaks and why.
struct StrictResult {
    std::optional<Value> value{};
    std::size_t offset = 0;
    std::string message{};
};

/// Reads a text that the fast parser refused, by the same rules: it takes whole numbers beyond 64 bits as doubles, or
/// says where the text is broken. The text has no byte order mark.
StrictResult parseStrictly(std::string_view text);

}  // namespace quorin::json
