#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorin::tool {

/// Those of `known` that somebody who typed `text` may have meant, or all of them where none is near.
std::string nearest(std::string_view text, const std::vector<std::string_view>& known);

}  // namespace quorin::tool
