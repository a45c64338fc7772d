#pragma once

#include <string_view>

namespace quorin::document {

/// How a field of an endpoint, under its key in the archive, changes the request that apps make: in words, or empty
/// where the request stays the same. Texts that are absent are empty.
std::string_view changeOfRequest(std::string_view key, std::string_view before, std::string_view after);

}  // namespace quorin::document
