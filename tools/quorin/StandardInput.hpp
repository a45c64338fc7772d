#pragma once

#include <string>

namespace quorin::tool {

/// A path at which all of standard input can be read, from where it stands and more than once.
std::string standardInputPath();

}  // namespace quorin::tool
