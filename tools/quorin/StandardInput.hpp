#pragma once

#include <string>

namespace quorin::tool {

/// A path at which all of standard input can be read, from where it stands and more than once.
std::string standardInputPath();

/// The path of a file that holds the bytes for as long as the process lives, and stands in no folder.
std::string keptPath(std::string_view bytes);

}  // namespace quorin::tool
