#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorin::document {

/// Those of `known` that somebody who wrote `text` may have meant: they differ
/// in the case of letters, or in one or two letters; the nearest first.
std::vector<std::string_view> near(std::string_view text, const std::vector<std::string_view>& known);

/// The same with ", " between them, or all of `known` where none is near.
std::string nearest(std::string_view text, const std::vector<std::string_view>& known);

}  // namespace quorin::document
