#pragma once

#include <string>
#include <string_view>

namespace quorin::keys {

/// What the readers take for each shape of a value, as Markdown.
std::string shapes();

/// Whether `shapes` tells of a shape.
bool isTold(std::string_view shape);

}  // namespace quorin::keys
