#pragma once

#include <string>

namespace quorin::keys {

/// Every section of a configuration with its keys, as Markdown, each below the one that holds it.
std::string sections();

}  // namespace quorin::keys
