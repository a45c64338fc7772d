#pragma once

#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/platform/skell/Request.hpp"
#include "quorin/services/WebService.hpp"
#include "quorin/services/requests/APIParams.hpp"

#include <optional>
#include <string>
#include <utility>

namespace quorin {

/// What a request is built from.
struct BuildArguments {
    std::string requestURL{};  ///< a template where `urlMapping` is given
    HTTPMethod requestMethod = HTTPMethod::GET;
    StringMap requestHeaders{};                             ///< exact names; the default headers replace them
    std::optional<StringMap> urlMapping{};                  ///< texts of the URL and what to put in their place
    std::optional<StringMap> queryParameters{};             ///< pairs of the query
    std::optional<DocumentMap> dictionaryRepresentation{};  ///< content of the body
    bool removeUserAgent = false;
};

/// A request to one of the app's services: `Skell::build(params,
/// service).response()`. A plain record that can be changed before it is sent,
/// and sent any number of times.
///
/// Building sends nothing and never fails. It reads the manager's default
/// headers once; any thread.
struct Skell : skell::Request {
    using Instance = ConfigurationManager::Instance;

    Skell() = default;
    Skell(skell::Request request) : skell::Request(std::move(request)) {}

    /// The request that `service` and `params` describe: the service's headers
    /// with the caller's in their place, then as below. Whether the call may be
    /// made is for `WebService::configurationGuard` to say, before.
    static Skell build(const APIParams& params, const WebService& service,
                       const Instance& manager = ConfigurationManager::sharedInstance());

    /// The URL is the template with each key of the mapping replaced, wherever it
    /// stands, by its value as it is, one after the other in byte order of the
    /// keys; then the query is appended, escaped. The headers are the caller's
    /// with the manager's default headers in their place. A content of the body
    /// is sent as JSON, XML, or (by POST alone) as a form, as the header
    /// "Content-Type" says; with another media type, or none, there is no body.
    static Skell build(const BuildArguments& arguments,
                       const Instance& manager = ConfigurationManager::sharedInstance());

    static Skell createSkell(HTTPMethod method, std::string url) { return make(method, std::move(url)); }
};

}  // namespace quorin
