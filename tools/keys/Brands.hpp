#pragma once

#include <string>

namespace quorin::keys {

/// The brands: under which member each has its section, and by which texts it is chosen. As Markdown.
std::string brands();

}  // namespace quorin::keys
