#pragma once

#include <string>

namespace quorin::keys {

/// What the readers take for each shape of a value, as Markdown.
std::string values();

}  // namespace quorin::keys
