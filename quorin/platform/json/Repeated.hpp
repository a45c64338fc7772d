#pragma once

#include <string>
#include <string_view>
#include <vector>

#pragma GCC visibility push(default)

namespace quorin::json {

/// Pointers (RFC 6901) to the members of `text`, which parses, that stand more than once in their object: of those only
/// the last counts. Each is named once, in the order of the text, the first 10,000 of them or those of 4 MiB. One pass
/// over the text.
std::vector<std::string> repeatedMembers(std::string_view text);

}  // namespace quorin::json

#pragma GCC visibility pop
