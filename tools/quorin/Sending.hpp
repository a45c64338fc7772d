#pragma once

#include "quorin/services/requests/Skell.hpp"

#include "Outcome.hpp"

#include <optional>
#include <string>

namespace quorin::tool {

/// What to make of a response: its bytes as they are, or the values of a model type.
struct Decoding {
    std::optional<std::string> type{};
    bool isList = false;
};

/// Sends the request and prints the response.
Outcome send(Session& session, const Skell& request, const Decoding& decoding);

}  // namespace quorin::tool
