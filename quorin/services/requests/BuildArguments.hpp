#pragma once

#include "quorin/platform/skell/HTTPMethod.hpp"
#include "quorin/table/Document.hpp"

#include <optional>
#include <string>

#pragma GCC visibility push(default)

namespace quorin {

/// What `Skell::build` makes a request of, where there is no service to name it.
struct BuildArguments {
    std::string requestURL{};  ///< a template where `urlMapping` is given
    HTTPMethod requestMethod = HTTPMethod::GET;
    StringMap requestHeaders{};                             ///< by exact names; the default headers replace them
    std::optional<StringMap> urlMapping{};                  ///< texts of the URL and what to put in their place
    std::optional<StringMap> queryParameters{};             ///< pairs of the query, not escaped
    std::optional<DocumentMap> dictionaryRepresentation{};  ///< content of the body; absent: there is no body
    bool removeUserAgent = false;                           ///< whoever set it, and in any letter case
};

}  // namespace quorin

#pragma GCC visibility pop
