#pragma once

#include "Session.hpp"

#include <functional>
#include <optional>

namespace quorin::tool {

/// What a command came to: nothing, or why it failed.
using Outcome = std::optional<Failure>;

/// What the chosen command does; set while the arguments are parsed and run afterwards.
using Action = std::function<Outcome(Session&)>;

/// An action whose exit status is a judgement, 0 or silently 1: what keeps it from judging is 2.
Action judging(Action action);

}  // namespace quorin::tool
