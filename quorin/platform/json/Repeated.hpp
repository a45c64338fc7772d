#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#pragma GCC visibility push(default)

namespace quorin::json {

/// Members that stand more than once.
struct Repeated {
    std::vector<std::string> pointers{};  ///< in the order of the text, each once
    std::size_t omitted = 0;              ///< beyond 10,000 of them, or 4 MiB
};

/// Pointers (RFC 6901) to the members of `text`, which parses, that stand more than once in their object: of those only
/// the last counts. One pass over the text.
Repeated repeatedMembers(std::string_view text);

}  // namespace quorin::json

#pragma GCC visibility pop
