#pragma once

#include <string>

namespace quorin::support {

/// What the shell command prints. Ends the program when it fails.
std::string outputOf(const std::string& command);

}  // namespace quorin::support
