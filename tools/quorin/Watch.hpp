#pragma once

#include "Outcome.hpp"

namespace quorin::tool {

/// Assigns what the lines of standard input say, and prints each event of the four observers as one line.
Outcome watch(Session& session, bool revealed);

}  // namespace quorin::tool
