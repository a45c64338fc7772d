#pragma once

#include "quorin/services/requests/Skell.hpp"

#include <string>

namespace quorin::tool {

/// The command line, for sh, with which `curl` sends the same message.
std::string curlLine(const Skell& request);

}  // namespace quorin::tool
