#pragma once

#include "quorin/services/requests/Skell.hpp"

#include "Command.hpp"
#include "Source.hpp"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace quorin::tool {

/// Of what endpoint or URL a request is made, and from what.
struct RequestArguments {
    std::optional<std::string> service{};
    std::optional<std::string> url{};
    Source source{};
    std::string method = "GET";
    std::vector<std::string> map{};
    std::vector<std::string> query{};
    std::vector<std::string> headers{};
    std::optional<std::string> body{};  ///< the file with the content
    bool removeUserAgent = false;

    void addTo(CLI::App& command);

    /// Throws a usage error where the arguments do not fit together. `command` has parsed them.
    void check(const CLI::App& command) const;

    /// The request that they describe; tells of what was probably not meant.
    std::variant<Skell, Failure> build(Session& session) const;

private:
    std::variant<Skell, Failure> buildForService(Session& session, const std::optional<DocumentMap>& content) const;
    std::variant<Skell, Failure> buildForURL(Session& session, const std::optional<DocumentMap>& content) const;
};

}  // namespace quorin::tool
